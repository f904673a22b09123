#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace varnhold::platform {

/// What a batch file of one `net use` line asks for.
struct NetUseLine {
  enum class Request { Connect, Disconnect };

  Request request = Request::Connect;
  std::string share;     ///< `\\HOST\c$`
  std::string account;   ///< `DOMAIN\user`; empty to disconnect
  std::string password;  ///< empty to disconnect

  friend bool operator==(const NetUseLine&, const NetUseLine&) = default;
};

/// Reads `net use SHARE PASSWORD /USER:ACCOUNT` or `net use SHARE /DELETE`, with or without a line end behind
/// it, words in either case. The password stands between the one blank behind the share and the last `
/// /USER:`, and may hold blanks or be empty. Nothing for any other text and for more than one line.
[[nodiscard]] std::optional<NetUseLine> parseNetUseLine(std::string_view text);

}  // namespace varnhold::platform
