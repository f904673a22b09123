#include "deployment/ssp_logon.h"

#include "base/secret.h"
#include "base/unicode.h"
#include "core/program.h"

namespace varnhold::deployment {
namespace {

using platform::SecBuffer;
using platform::SecurityHandle;
using platform::SecurityPackage;
using platform::SecWinntAuthIdentity;

constexpr const char* kPackage = "NTLM";
constexpr std::uint32_t kLastMajorOfSecurityDll = 4;

/// Which of the two libraries this system has the package in.
SecurityPackage& chooseLibrary(core::Program& program) {
  const auto version = program.host.environment.getVersionEx();
  program.gUseSecurityDll =
      version.platformId == platform::kPlatformWin32Nt && version.majorVersion <= kLastMajorOfSecurityDll;
  return program.gUseSecurityDll ? program.host.security : program.host.secur32;
}

/// The longest token of the package in bytes; 0 when there is no such package.
std::uint32_t longestToken(SecurityPackage& sspi) {
  platform::SecurityPackageInfo info;
  if (sspi.querySecurityPackageInfo(kPackage, info) < 0) return 0;
  sspi.freeContextBuffer(info.contextBuffer);
  return info.cbMaxToken;
}

std::uint32_t characters(const std::string& text) {
  auto wide = toUtf16(text);
  const WipedAtEnd wiped(wide);
  return static_cast<std::uint32_t>(wide.size());
}

SecWinntAuthIdentity identityOf(const std::string& user, const std::string& domain,
                                const std::string& password) {
  return {.User = user,
          .UserLength = characters(user),
          .Domain = domain,
          .DomainLength = characters(domain),
          .Password = password,
          .PasswordLength = characters(password)};
}

/// The part of a step behind its call: completes the token where the package asks for that, and tells how the
/// step ended.
bool finishStep(SecurityPackage& sspi, NtlmAuthState& state, long status, SecBuffer& token,
                std::uint32_t& outputLength, bool& done) {
  if (status < 0) return false;
  state.HaveCtxtHandle = true;
  const bool isIncomplete =
      status == platform::kSecCompleteNeeded || status == platform::kSecCompleteAndContinue;
  if (isIncomplete && sspi.completeAuthToken(state.CtxtHandle, token) < 0) return false;
  outputLength = token.cbBuffer;
  state.Initialized = true;
  done = status != platform::kSecContinueNeeded && status != platform::kSecCompleteAndContinue;
  return true;
}

bool acquire(SecurityPackage& sspi, NtlmAuthState& state, std::uint32_t use,
             const SecWinntAuthIdentity* identity) {
  if (sspi.acquireCredentialsHandle(kPackage, use, identity, state.CredHandle) < 0) return false;
  state.HaveCredHandle = true;
  return true;
}

/// Both roles with a token buffer each, given back in the order of the destructor.
class Handshake {
 public:
  Handshake(SecurityPackage& sspi, platform::Heap& heap, std::uint32_t tokenSize)
      : sspi_(sspi), heap_(heap), tokenSize_(tokenSize) {
    clientToken_ = heap_.heapAlloc(tokenSize_);
    if (clientToken_ != nullptr) serverToken_ = heap_.heapAlloc(tokenSize_);
  }
  ~Handshake() {
    giveBack(client_);
    giveBack(server_);
    for (auto* const token : {clientToken_, serverToken_})
      if (token != nullptr) heap_.heapFree(token);
  }
  Handshake(const Handshake&) = delete;
  Handshake& operator=(const Handshake&) = delete;

  /// Exactly four steps, whatever the package says of being done: NTLM needs no more, and the check is that
  /// the last one accepts.
  bool run(const SecWinntAuthIdentity& identity) {
    if (serverToken_ == nullptr) return false;
    return askAsClient(identity, nullptr, 0) && answerAsServer() &&
           askAsClient(identity, serverToken_, serverLength_) && answerAsServer();
  }

 private:
  bool askAsClient(const SecWinntAuthIdentity& identity, std::uint8_t* input, std::uint32_t inputLength) {
    clientLength_ = tokenSize_;
    bool done = false;
    return GenClientContext(sspi_, client_, identity, input, inputLength, clientToken_, clientLength_, done);
  }
  bool answerAsServer() {
    serverLength_ = tokenSize_;
    bool done = false;
    return GenServerContext(sspi_, server_, clientToken_, clientLength_, serverToken_, serverLength_, done);
  }
  void giveBack(const NtlmAuthState& state) {
    if (state.HaveCtxtHandle) sspi_.deleteSecurityContext(state.CtxtHandle);
    if (state.HaveCredHandle) sspi_.freeCredentialsHandle(state.CredHandle);
  }

  SecurityPackage& sspi_;
  platform::Heap& heap_;
  const std::uint32_t tokenSize_;
  NtlmAuthState client_, server_;
  std::uint8_t *clientToken_ = nullptr, *serverToken_ = nullptr;
  std::uint32_t clientLength_ = 0, serverLength_ = 0;
};

}  // namespace

bool GenClientContext(SecurityPackage& sspi, NtlmAuthState& state, const SecWinntAuthIdentity& identity,
                      std::uint8_t* input, std::uint32_t inputLength, std::uint8_t* output,
                      std::uint32_t& outputLength, bool& done) {
  const bool isFirst = !state.Initialized;
  if (isFirst && !acquire(sspi, state, platform::kSecpkgCredOutbound, &identity)) return false;
  SecBuffer token{outputLength, output};
  const SecBuffer given{inputLength, input};
  const auto status = sspi.initializeSecurityContext(state.CredHandle, isFirst ? nullptr : &state.CtxtHandle,
                                                     0, platform::kSecurityNativeDrep,
                                                     isFirst ? nullptr : &given, state.CtxtHandle, token);
  return finishStep(sspi, state, status, token, outputLength, done);
}

bool GenServerContext(SecurityPackage& sspi, NtlmAuthState& state, std::uint8_t* input,
                      std::uint32_t inputLength, std::uint8_t* output, std::uint32_t& outputLength,
                      bool& done) {
  const bool isFirst = !state.Initialized;
  if (isFirst && !acquire(sspi, state, platform::kSecpkgCredInbound, nullptr)) return false;
  SecBuffer token{outputLength, output};
  const auto status = sspi.acceptSecurityContext(state.CredHandle, isFirst ? nullptr : &state.CtxtHandle,
                                                 {inputLength, input}, 0, platform::kSecurityNativeDrep,
                                                 state.CtxtHandle, token);
  return finishStep(sspi, state, status, token, outputLength, done);
}

bool SSPLogon(core::Program& program, const std::string& user, const std::string& domain,
              const std::string& password) {
  auto& sspi = chooseLibrary(program);
  const auto tokenSize = longestToken(sspi);
  if (tokenSize == 0) return false;
  Handshake handshake(sspi, program.host.heap, tokenSize);
  auto identity = identityOf(user, domain, password);
  const WipedAtEnd wiped(identity.Password);
  return handshake.run(identity);
}

}  // namespace varnhold::deployment
