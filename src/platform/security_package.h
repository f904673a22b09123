#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace varnhold::platform {

/// A credentials or context handle as the security package gave it out; 0 is none.
using SecurityHandle = std::uint64_t;

inline constexpr std::uint32_t kSecpkgCredInbound = 1;       ///< sspi.h SECPKG_CRED_INBOUND
inline constexpr std::uint32_t kSecpkgCredOutbound = 2;      ///< sspi.h SECPKG_CRED_OUTBOUND
inline constexpr std::uint32_t kSecurityNativeDrep = 16;     ///< sspi.h SECURITY_NATIVE_DREP
inline constexpr std::uint32_t kSecWinntAuthAnsi = 1;        ///< SEC_WINNT_AUTH_IDENTITY_ANSI
inline constexpr long kSecOk = 0;                            ///< winerror.h SEC_E_OK
inline constexpr long kSecContinueNeeded = 0x90312;          ///< winerror.h SEC_I_CONTINUE_NEEDED
inline constexpr long kSecCompleteNeeded = 0x90313;          ///< winerror.h SEC_I_COMPLETE_NEEDED
inline constexpr long kSecCompleteAndContinue = 0x90314;     ///< winerror.h SEC_I_COMPLETE_AND_CONTINUE
inline constexpr long kSecInternalError = -0x7FF6FCFC;       ///< winerror.h SEC_E_INTERNAL_ERROR
inline constexpr long kSecBufferTooSmall = -0x7FF6FCDF;      ///< winerror.h SEC_E_BUFFER_TOO_SMALL
inline constexpr long kSecInvalidHandle = -0x7FF6FCFF;       ///< winerror.h SEC_E_INVALID_HANDLE
inline constexpr long kSecInvalidToken = -0x7FF6FCF8;        ///< winerror.h SEC_E_INVALID_TOKEN
inline constexpr long kSecLogonDenied = -0x7FF6FCF4;         ///< winerror.h SEC_E_LOGON_DENIED
inline constexpr long kSecPackageNotFound = -0x7FF6FCFB;     ///< winerror.h SEC_E_SECPKG_NOT_FOUND
inline constexpr long kSecUnknownCredentials = -0x7FF6FCF3;  ///< winerror.h SEC_E_UNKNOWN_CREDENTIALS
inline constexpr long kSecNoCredentials = -0x7FF6FCF2;       ///< winerror.h SEC_E_NO_CREDENTIALS

/// SEC_WINNT_AUTH_IDENTITY: whom the client role speaks for. Lengths are counts of characters.
struct SecWinntAuthIdentity {
  std::string User;
  std::uint32_t UserLength = 0;
  std::string Domain;
  std::uint32_t DomainLength = 0;
  std::string Password;
  std::uint32_t PasswordLength = 0;
  std::uint32_t Flags = kSecWinntAuthAnsi;
};

/// What is used of SecPkgInfo.
struct SecurityPackageInfo {
  std::uint32_t cbMaxToken = 0;      ///< the longest token of the package, in bytes
  SecurityHandle contextBuffer = 0;  ///< the record itself, for `freeContextBuffer`
};

/// A SecBufferDesc with one buffer of the kind SECBUFFER_TOKEN.
struct SecBuffer {
  std::uint32_t cbBuffer = 0;        ///< in: the room or the token's length; out: the token's length
  std::uint8_t* pvBuffer = nullptr;  ///< the caller's
};

/// The calls of one SSPI library, as sspi.h has them. A status is the library's own: negative is a failure.
/// On a host without SSPI a package of the host's stands behind it that speaks the same protocol. Passwords
/// are handed on and kept nowhere. Main thread.
class SecurityPackage {
 public:
  virtual ~SecurityPackage() = default;

  /// QuerySecurityPackageInfo; on success `info.contextBuffer` is to be given back.
  [[nodiscard]] virtual long querySecurityPackageInfo(const std::string& package,
                                                      SecurityPackageInfo& info) = 0;
  /// FreeContextBuffer.
  virtual long freeContextBuffer(SecurityHandle contextBuffer) = 0;
  /// AcquireCredentialsHandle without principal, logon id and key function. `identity` may be null: the
  /// account that the process runs under. On success `credential` is to be freed.
  [[nodiscard]] virtual long acquireCredentialsHandle(const std::string& package, std::uint32_t use,
                                                      const SecWinntAuthIdentity* identity,
                                                      SecurityHandle& credential) = 0;
  /// InitializeSecurityContext without target name. `context` and `input` are null in the first call. Unless
  /// the result is negative `newContext` is to be deleted, and `output` holds a token.
  [[nodiscard]] virtual long initializeSecurityContext(SecurityHandle credential,
                                                       const SecurityHandle* context,
                                                       std::uint32_t contextRequest,
                                                       std::uint32_t dataRepresentation,
                                                       const SecBuffer* input, SecurityHandle& newContext,
                                                       SecBuffer& output) = 0;
  /// AcceptSecurityContext. `context` is null in the first call. Otherwise as above.
  [[nodiscard]] virtual long acceptSecurityContext(SecurityHandle credential, const SecurityHandle* context,
                                                   const SecBuffer& input, std::uint32_t contextRequest,
                                                   std::uint32_t dataRepresentation,
                                                   SecurityHandle& newContext, SecBuffer& output) = 0;
  /// CompleteAuthToken.
  [[nodiscard]] virtual long completeAuthToken(SecurityHandle context, SecBuffer& token) = 0;
  /// DeleteSecurityContext.
  virtual long deleteSecurityContext(SecurityHandle context) = 0;
  /// FreeCredentialsHandle.
  virtual long freeCredentialsHandle(SecurityHandle credential) = 0;
};

}  // namespace varnhold::platform
