#include "platform/security_package.h"

#include <windows.h>
// sspi.h wants windows.h before it, and to be told for which side.
#define SECURITY_WIN32
#include <sspi.h>

#include <map>
#include <optional>

#include "base/secret.h"
#include "platform/windows/adapters.h"
#include "platform/windows/text.h"

namespace varnhold::platform::windows {
namespace {

static_assert(kSecpkgCredInbound == SECPKG_CRED_INBOUND && kSecpkgCredOutbound == SECPKG_CRED_OUTBOUND);
static_assert(kSecurityNativeDrep == SECURITY_NATIVE_DREP);
static_assert(kSecWinntAuthAnsi == SEC_WINNT_AUTH_IDENTITY_ANSI);
static_assert(kSecContinueNeeded == SEC_I_CONTINUE_NEEDED && kSecCompleteNeeded == SEC_I_COMPLETE_NEEDED);
static_assert(kSecCompleteAndContinue == SEC_I_COMPLETE_AND_CONTINUE && kSecOk == SEC_E_OK);
static_assert(kSecInvalidHandle == SEC_E_INVALID_HANDLE && kSecPackageNotFound == SEC_E_SECPKG_NOT_FOUND);

/// A description of one token buffer, which the call fills in place.
class TokenBuffer {
 public:
  explicit TokenBuffer(const platform::SecBuffer& token)
      : buffer_{token.cbBuffer, SECBUFFER_TOKEN, token.pvBuffer} {}
  TokenBuffer(const TokenBuffer&) = delete;
  TokenBuffer& operator=(const TokenBuffer&) = delete;

  ::SecBufferDesc* get() { return &description_; }
  [[nodiscard]] std::uint32_t length() const { return buffer_.cbBuffer; }

 private:
  ::SecBuffer buffer_;
  ::SecBufferDesc description_{SECBUFFER_VERSION, 1, &buffer_};
};

/// The identity in wide letters, wiped when it goes.
class WideIdentity {
 public:
  explicit WideIdentity(const SecWinntAuthIdentity& identity)
      : user_(toWide(identity.User)), domain_(toWide(identity.Domain)), password_(toWide(identity.Password)) {
    native_.User = letters(user_);
    native_.UserLength = length(user_);
    native_.Domain = letters(domain_);
    native_.DomainLength = length(domain_);
    native_.Password = letters(password_);
    native_.PasswordLength = length(password_);
    native_.Flags = SEC_WINNT_AUTH_IDENTITY_UNICODE;
  }
  ~WideIdentity() { wipe(password_); }
  WideIdentity(const WideIdentity&) = delete;
  WideIdentity& operator=(const WideIdentity&) = delete;

  SEC_WINNT_AUTH_IDENTITY_W* get() { return &native_; }

 private:
  static unsigned short* letters(std::wstring& text) {
    return reinterpret_cast<unsigned short*>(text.data());
  }
  static unsigned long length(const std::wstring& text) { return static_cast<unsigned long>(text.size()); }

  std::wstring user_, domain_, password_;
  SEC_WINNT_AUTH_IDENTITY_W native_{};
};

/// One library of SSPI, loaded when it is first called.
class WindowsSecurityPackage : public SecurityPackage {
 public:
  explicit WindowsSecurityPackage(std::string library) : library_(std::move(library)) {}
  ~WindowsSecurityPackage() override {
    while (!contexts_.empty()) deleteSecurityContext(contexts_.begin()->first);
    while (!credentials_.empty()) freeCredentialsHandle(credentials_.begin()->first);
  }
  WindowsSecurityPackage(const WindowsSecurityPackage&) = delete;
  WindowsSecurityPackage& operator=(const WindowsSecurityPackage&) = delete;

  long querySecurityPackageInfo(const std::string& package, SecurityPackageInfo& info) override {
    if (functions() == nullptr) return kSecPackageNotFound;
    PSecPkgInfoW found = nullptr;
    auto name = toWide(package);
    const auto status = functions_->QuerySecurityPackageInfoW(name.data(), &found);
    if (status < 0) return status;
    info = {found->cbMaxToken, reinterpret_cast<SecurityHandle>(found)};
    return status;
  }

  long freeContextBuffer(SecurityHandle contextBuffer) override {
    if (functions() == nullptr) return kSecInvalidHandle;
    return functions_->FreeContextBuffer(
        reinterpret_cast<void*>(contextBuffer));  // NOLINT(performance-no-int-to-ptr)
  }

  long acquireCredentialsHandle(const std::string& package, std::uint32_t use,
                                const SecWinntAuthIdentity* identity, SecurityHandle& credential) override {
    if (functions() == nullptr) return kSecPackageNotFound;
    auto name = toWide(package);
    std::optional<WideIdentity> wide;
    if (identity != nullptr) wide.emplace(*identity);
    CredHandle acquired{};
    TimeStamp expiry{};
    const auto status = functions_->AcquireCredentialsHandleW(nullptr, name.data(), use, nullptr,
                                                              wide ? wide->get() : nullptr, nullptr, nullptr,
                                                              &acquired, &expiry);
    if (status < 0) return status;
    credential = ++last_;
    credentials_[credential] = acquired;
    return status;
  }

  long initializeSecurityContext(SecurityHandle credential, const SecurityHandle* context,
                                 std::uint32_t contextRequest, std::uint32_t dataRepresentation,
                                 const platform::SecBuffer* input, SecurityHandle& newContext,
                                 platform::SecBuffer& output) override {
    TokenBuffer given(input == nullptr ? platform::SecBuffer{} : *input);
    const auto call = [&](CredHandle* own, CtxtHandle* current, CtxtHandle* made, ::SecBufferDesc* token) {
      ULONG attributes = 0;
      TimeStamp expiry{};
      return functions_->InitializeSecurityContextW(
          own, current, nullptr, contextRequest, 0, dataRepresentation,
          input == nullptr ? nullptr : given.get(), 0, made, token, &attributes, &expiry);
    };
    return step(credential, context, newContext, output, call);
  }

  long acceptSecurityContext(SecurityHandle credential, const SecurityHandle* context,
                             const platform::SecBuffer& input, std::uint32_t contextRequest,
                             std::uint32_t dataRepresentation, SecurityHandle& newContext,
                             platform::SecBuffer& output) override {
    TokenBuffer given(input);
    const auto call = [&](CredHandle* own, CtxtHandle* current, CtxtHandle* made, ::SecBufferDesc* token) {
      ULONG attributes = 0;
      TimeStamp expiry{};
      return functions_->AcceptSecurityContext(own, current, given.get(), contextRequest, dataRepresentation,
                                               made, token, &attributes, &expiry);
    };
    return step(credential, context, newContext, output, call);
  }

  long completeAuthToken(SecurityHandle context, platform::SecBuffer& token) override {
    const auto found = contexts_.find(context);
    if (found == contexts_.end()) return kSecInvalidHandle;
    TokenBuffer buffer(token);
    const auto status = functions_->CompleteAuthToken(&found->second, buffer.get());
    if (status >= 0) token.cbBuffer = buffer.length();
    return status;
  }

  long deleteSecurityContext(SecurityHandle context) override {
    const auto found = contexts_.find(context);
    if (found == contexts_.end()) return kSecInvalidHandle;
    auto handle = found->second;
    contexts_.erase(found);
    return functions_->DeleteSecurityContext(&handle);
  }

  long freeCredentialsHandle(SecurityHandle credential) override {
    const auto found = credentials_.find(credential);
    if (found == credentials_.end()) return kSecInvalidHandle;
    auto handle = found->second;
    credentials_.erase(found);
    return functions_->FreeCredentialsHandle(&handle);
  }

 private:
  /// Null where there is no such library. One that was found stays for as long as the process.
  const SecurityFunctionTableW* functions() {
    if (functions_ != nullptr) return functions_;
    auto* const module = LoadLibraryExW(toWide(library_).c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (module == nullptr) return nullptr;
    const auto init = reinterpret_cast<INIT_SECURITY_INTERFACE_W>(
        reinterpret_cast<void (*)()>(GetProcAddress(module, "InitSecurityInterfaceW")));
    if (init != nullptr) functions_ = init();
    if (functions_ == nullptr) FreeLibrary(module);
    return functions_;
  }

  /// One step of a role: a context of the caller's goes on, else a new one begins.
  template <typename Call>
  long step(SecurityHandle credential, const SecurityHandle* context, SecurityHandle& newContext,
            platform::SecBuffer& output, Call call) {
    const auto own = credentials_.find(credential);
    if (own == credentials_.end()) return kSecInvalidHandle;
    const auto current = context == nullptr ? contexts_.end() : contexts_.find(*context);
    if (context != nullptr && current == contexts_.end()) return kSecInvalidHandle;
    auto made = context == nullptr ? CtxtHandle{} : current->second;
    TokenBuffer token(output);
    const auto status =
        call(&own->second, context == nullptr ? nullptr : &current->second, &made, token.get());
    if (status < 0) return status;
    newContext = context == nullptr ? ++last_ : *context;
    contexts_[newContext] = made;
    output.cbBuffer = token.length();
    return status;
  }

  std::string library_;
  const SecurityFunctionTableW* functions_ = nullptr;
  SecurityHandle last_ = 0;
  std::map<SecurityHandle, CredHandle> credentials_;
  std::map<SecurityHandle, CtxtHandle> contexts_;
};

}  // namespace

std::unique_ptr<SecurityPackage> makeSecurityPackage(std::string library) {
  return std::make_unique<WindowsSecurityPackage>(std::move(library));
}

}  // namespace varnhold::platform::windows
