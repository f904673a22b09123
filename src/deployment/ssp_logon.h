#pragma once

#include <cstdint>
#include <string>

#include "platform/security_package.h"

namespace varnhold::core {
struct Program;
}

/// The local check of an account: a whole NTLM handshake between two security contexts of this process, so
/// that it needs no logon on a network and sends nothing to any target. Main thread.
namespace varnhold::deployment {

/// One of the two roles, cleared before its first step.
struct NtlmAuthState {
  bool Initialized = false;     ///< a first step has been made
  bool HaveCredHandle = false;  ///< `CredHandle` is to be freed
  bool HaveCtxtHandle = false;  ///< `CtxtHandle` is to be deleted
  platform::SecurityHandle CredHandle = 0, CtxtHandle = 0;
};

/// True when the credentials are good. Any failure is a plain false. Whatever was opened is given back.
[[nodiscard]] bool SSPLogon(core::Program& program, const std::string& user, const std::string& domain,
                            const std::string& password);

/// One step of the client's role. `input` is the server's token and is left out of the first step;
/// `outputLength` is in the room of `output` and out the length of the token there. `done` tells that the
/// package wants no further step. False when a call of the package fails; what was opened by then stands in
/// `state`.
[[nodiscard]] bool GenClientContext(platform::SecurityPackage& sspi, NtlmAuthState& state,
                                    const platform::SecWinntAuthIdentity& identity, std::uint8_t* input,
                                    std::uint32_t inputLength, std::uint8_t* output,
                                    std::uint32_t& outputLength, bool& done);

/// The same for the server's role, which takes the client's token in every step.
[[nodiscard]] bool GenServerContext(platform::SecurityPackage& sspi, NtlmAuthState& state,
                                    std::uint8_t* input, std::uint32_t inputLength, std::uint8_t* output,
                                    std::uint32_t& outputLength, bool& done);

}  // namespace varnhold::deployment
