#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "platform/security_package.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// An SSPI library in memory, whose package "NTLM" knows some accounts. Journal lines, with the library's
/// name in front:
///   secur32: QuerySecurityPackageInfo NTLM -> 0
///   secur32: FreeContextBuffer 1
///   secur32: AcquireCredentialsHandle NTLM use 2 CORP\admin flags 1 -> 0, credential 2
///   secur32: AcquireCredentialsHandle NTLM use 1 no identity -> 0, credential 3
///   secur32: InitializeSecurityContext 2 context 0 request 0 drep 16 input none room 64 -> 0x90312, context
///   4 secur32: AcceptSecurityContext 3 context 0 request 0 drep 16 input 9 room 64 -> 0x90312, context 5
///   secur32: CompleteAuthToken 4 -> 0
///   secur32: DeleteSecurityContext 4
///   secur32: FreeCredentialsHandle 2
/// A token's text is no password, and no line holds one.
class FakeSecurityPackage : public platform::SecurityPackage {
 public:
  FakeSecurityPackage(Journal& journal, std::string library)
      : journal_(journal), library_(std::move(library)) {}

  std::map<std::string, std::string> passwords;  ///< by `DOMAIN\user` in upper case
  std::uint32_t cbMaxToken = 64;
  /// What a call answers in place of its own status, by its name and how often it was made by then:
  /// `AcceptSecurityContext 2`. A negative one leaves nothing open.
  std::map<std::string, long> statusOf;

  std::optional<platform::SecWinntAuthIdentity> identity;  ///< the one that was last handed over

  /// `statusOf` counts from 1 again.
  void forgetCalls() { calls_.clear(); }
  /// Handles and records that were given out and not given back.
  [[nodiscard]] std::size_t live() const { return credentials_.size() + contexts_.size() + records_.size(); }

  long querySecurityPackageInfo(const std::string& package, platform::SecurityPackageInfo& info) override;
  long freeContextBuffer(platform::SecurityHandle contextBuffer) override;
  long acquireCredentialsHandle(const std::string& package, std::uint32_t use,
                                const platform::SecWinntAuthIdentity* identity,
                                platform::SecurityHandle& credential) override;
  long initializeSecurityContext(platform::SecurityHandle credential, const platform::SecurityHandle* context,
                                 std::uint32_t contextRequest, std::uint32_t dataRepresentation,
                                 const platform::SecBuffer* input, platform::SecurityHandle& newContext,
                                 platform::SecBuffer& output) override;
  long acceptSecurityContext(platform::SecurityHandle credential, const platform::SecurityHandle* context,
                             const platform::SecBuffer& input, std::uint32_t contextRequest,
                             std::uint32_t dataRepresentation, platform::SecurityHandle& newContext,
                             platform::SecBuffer& output) override;
  long completeAuthToken(platform::SecurityHandle context, platform::SecBuffer& token) override;
  long deleteSecurityContext(platform::SecurityHandle context) override;
  long freeCredentialsHandle(platform::SecurityHandle credential) override;

 private:
  struct Credential {
    std::uint32_t use = 0;
    std::string account;  ///< `DOMAIN\user` in upper case
    std::uint64_t passwordHash = 0;
  };

  /// The status of this call: what the test says, or `own`.
  long statusFor(const std::string& call, long own);
  void note(const std::string& line);
  platform::SecurityHandle contextFor(const platform::SecurityHandle* context);

  Journal& journal_;
  std::string library_;
  platform::SecurityHandle last_ = 0;
  std::map<std::string, int> calls_;
  std::map<platform::SecurityHandle, Credential> credentials_;
  std::set<platform::SecurityHandle> contexts_, records_;
};

}  // namespace varnhold::fakes
