#pragma once

#include <string>
#include <string_view>

/// The user file of the NTLM mechanism: lines `DOMAIN:user:password`. The mechanism reads the passwords; here
/// is only what it leaves to others.
namespace varnhold::platform::posix {

/// `domain` as the file's first account of that domain has it, letters' case included, which the mechanism
/// minds and Windows does not; `domain` itself when the file has none.
[[nodiscard]] std::string domainAsInFile(std::string_view content, const std::string& domain);

/// True when the file is there, belongs to the user that runs the program, and nobody else may read or write
/// it. Where only the last is wrong, standard error says so, since whoever is refused an account learns
/// nothing of the reason.
[[nodiscard]] bool isOwnersAlone(const std::string& file);

}  // namespace varnhold::platform::posix
