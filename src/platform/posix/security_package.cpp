#include "platform/security_package.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "base/secret.h"
#include "platform/posix/adapters.h"
#include "platform/posix/gss_handles.h"
#include "platform/posix/ntlm_users.h"

namespace varnhold::platform::posix {
namespace {

/// The longest token of NTLM as Windows has it.
constexpr std::uint32_t kNtlmMaxToken = 2888;
/// The mechanism wants the name of a service, and sends it nowhere.
constexpr const char* kServerName = "host@localhost";

/// The whole file in the one place where it is read to: it holds passwords, which the caller wipes.
std::string contentOf(const std::string& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  if (error) return {};
  std::string content(size, '\0');
  std::ifstream stream;
  stream.rdbuf()->pubsetbuf(nullptr, 0);
  stream.open(file, std::ios::binary);
  stream.read(content.data(), static_cast<std::streamsize>(content.size()));
  return content;
}

long statusOf(OM_uint32 major) {
  if (GSS_ERROR(major)) {
    switch (GSS_ROUTINE_ERROR(major)) {
      case GSS_S_DEFECTIVE_TOKEN:
        return kSecInvalidToken;
      case GSS_S_NO_CRED:
        return kSecNoCredentials;
      case GSS_S_FAILURE:
        return kSecLogonDenied;
      default:
        return kSecInternalError;
    }
  }
  return (major & GSS_S_CONTINUE_NEEDED) != 0 ? kSecContinueNeeded : kSecOk;
}

gss_buffer_desc inputOf(const SecBuffer* input) {
  if (input == nullptr) return GSS_C_EMPTY_BUFFER;
  return {input->cbBuffer, input->pvBuffer};
}

/// Copies a token to the caller's buffer; `status`, or what it costs that there is no room.
long handOut(const gss_buffer_desc& token, SecBuffer& output, long status) {
  if (token.length > output.cbBuffer) return kSecBufferTooSmall;
  const auto* const bytes = static_cast<const std::uint8_t*>(token.value);
  std::copy_n(bytes, token.length, output.pvBuffer);
  output.cbBuffer = static_cast<std::uint32_t>(token.length);
  return status;
}

/// Both roles of NTLM, in this process alone: the accepting one has its accounts from the user file.
class GssSecurityPackage : public SecurityPackage {
 public:
  explicit GssSecurityPackage(std::string userFile) : userFile_(std::move(userFile)) {}
  ~GssSecurityPackage() override {
    while (!contexts_.empty()) deleteSecurityContext(contexts_.begin()->first);
    while (!credentials_.empty()) freeCredentialsHandle(credentials_.begin()->first);
  }
  GssSecurityPackage(const GssSecurityPackage&) = delete;
  GssSecurityPackage& operator=(const GssSecurityPackage&) = delete;

  long querySecurityPackageInfo(const std::string& package, SecurityPackageInfo& info) override {
    if (package != "NTLM") return kSecPackageNotFound;
    records_.insert(++last_);
    info = {kNtlmMaxToken, last_};
    return kSecOk;
  }

  long freeContextBuffer(SecurityHandle contextBuffer) override {
    return records_.erase(contextBuffer) != 0 ? kSecOk : kSecInvalidHandle;
  }

  long acquireCredentialsHandle(const std::string& package, std::uint32_t use,
                                const SecWinntAuthIdentity* identity, SecurityHandle& credential) override {
    if (package != "NTLM") return kSecPackageNotFound;
    gss_cred_id_t acquired = GSS_C_NO_CREDENTIAL;
    const auto status = use == kSecpkgCredInbound ? acquireInbound(acquired)
                        : identity == nullptr     ? kSecNoCredentials
                                                  : acquireOutbound(*identity, acquired);
    if (status < 0) return status;
    credential = ++last_;
    credentials_[credential] = acquired;
    return status;
  }

  long initializeSecurityContext(SecurityHandle credential, const SecurityHandle* context,
                                 std::uint32_t contextRequest, std::uint32_t, const SecBuffer* input,
                                 SecurityHandle& newContext, SecBuffer& output) override {
    const auto call = [&](gss_cred_id_t own, gss_ctx_id_t& current, gss_buffer_t token) {
      const OwnedGssName server(kServerName, GSS_C_NT_HOSTBASED_SERVICE);
      auto given = inputOf(input);
      OM_uint32 minor = 0;
      return gss_init_sec_context(&minor, own, &current, server.get(), mechanism_.oid(), contextRequest, 0,
                                  GSS_C_NO_CHANNEL_BINDINGS, &given, nullptr, token, nullptr, nullptr);
    };
    return step(credential, context, newContext, output, call);
  }

  long acceptSecurityContext(SecurityHandle credential, const SecurityHandle* context, const SecBuffer& input,
                             std::uint32_t, std::uint32_t, SecurityHandle& newContext,
                             SecBuffer& output) override {
    const auto call = [&](gss_cred_id_t own, gss_ctx_id_t& current, gss_buffer_t token) {
      auto given = inputOf(&input);
      OM_uint32 minor = 0;
      return gss_accept_sec_context(&minor, &current, own, &given, GSS_C_NO_CHANNEL_BINDINGS, nullptr,
                                    nullptr, token, nullptr, nullptr, nullptr);
    };
    return step(credential, context, newContext, output, call);
  }

  /// The mechanism's tokens are always complete.
  long completeAuthToken(SecurityHandle context, SecBuffer&) override {
    return contexts_.contains(context) ? kSecOk : kSecInvalidHandle;
  }

  long deleteSecurityContext(SecurityHandle context) override {
    const auto found = contexts_.find(context);
    if (found == contexts_.end()) return kSecInvalidHandle;
    OM_uint32 minor = 0;
    gss_delete_sec_context(&minor, &found->second, GSS_C_NO_BUFFER);
    contexts_.erase(found);
    return kSecOk;
  }

  long freeCredentialsHandle(SecurityHandle credential) override {
    const auto found = credentials_.find(credential);
    if (found == credentials_.end()) return kSecInvalidHandle;
    OM_uint32 minor = 0;
    gss_release_cred(&minor, &found->second);
    credentials_.erase(found);
    return kSecOk;
  }

 private:
  long acquireOutbound(const SecWinntAuthIdentity& identity, gss_cred_id_t& acquired) {
    auto users = contentOf(userFile_);
    const WipedAtEnd wiped(users);
    const auto domain = domainAsInFile(users, identity.Domain);
    const OwnedGssName name(domain + "\\" + identity.User, GSS_C_NT_USER_NAME);
    if (!name) return kSecUnknownCredentials;
    gss_buffer_desc password{identity.Password.size(), const_cast<char*>(identity.Password.data())};
    OM_uint32 minor = 0;
    return statusOf(gss_acquire_cred_with_password(&minor, name.get(), &password, 0, mechanism_.set(),
                                                   GSS_C_INITIATE, &acquired, nullptr, nullptr));
  }

  long acquireInbound(gss_cred_id_t& acquired) {
    if (!isOwnersAlone(userFile_)) return kSecNoCredentials;
    OM_uint32 minor = 0;
    return statusOf(gss_acquire_cred(&minor, GSS_C_NO_NAME, 0, mechanism_.set(), GSS_C_ACCEPT, &acquired,
                                     nullptr, nullptr));
  }

  /// One step of a role: a context of the caller's goes on, else a new one begins, which stays only if it
  /// went well.
  template <typename Call>
  long step(SecurityHandle credential, const SecurityHandle* context, SecurityHandle& newContext,
            SecBuffer& output, Call call) {
    const auto own = credentials_.find(credential);
    if (own == credentials_.end()) return kSecInvalidHandle;
    if (context != nullptr && !contexts_.contains(*context)) return kSecInvalidHandle;
    const auto handle = context != nullptr ? *context : ++last_;
    OwnedGssToken token;
    auto status = statusOf(call(own->second, contexts_[handle], token.get()));
    if (status >= 0) status = handOut(token.buffer(), output, status);
    if (status < 0 && context == nullptr) deleteSecurityContext(handle);
    if (status >= 0) newContext = handle;
    return status;
  }

  std::string userFile_;
  NtlmMechanism mechanism_;
  SecurityHandle last_ = 0;
  std::map<SecurityHandle, gss_cred_id_t> credentials_;
  std::map<SecurityHandle, gss_ctx_id_t> contexts_;
  std::set<SecurityHandle> records_;
};

}  // namespace

std::unique_ptr<SecurityPackage> makeSecurityPackage(std::string userFile) {
  return std::make_unique<GssSecurityPackage>(std::move(userFile));
}

}  // namespace varnhold::platform::posix
