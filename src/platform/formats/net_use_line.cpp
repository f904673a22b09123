#include "platform/formats/net_use_line.h"

#include "base/secret.h"
#include "base/text.h"
#include "platform/formats/path_translation.h"

namespace varnhold::platform {
namespace {

constexpr std::string_view kCommand = "NET USE ";
constexpr std::string_view kUserSwitch = " /USER:";
constexpr std::string_view kDeleteSwitch = "/DELETE";

/// ASCII letters only, so that positions stay those of the text.
std::string asciiUpper(std::string_view text) {
  std::string upper(text);
  for (auto& letter : upper) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return upper;
}

std::string_view withoutLineEnd(std::string_view text) {
  if (text.ends_with('\n')) text.remove_suffix(1);
  if (text.ends_with('\r')) text.remove_suffix(1);
  return text;
}

}  // namespace

std::optional<NetUseLine> parseNetUseLine(std::string_view text) {
  text = withoutLineEnd(text);
  if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) return std::nullopt;
  if (asciiUpper(text.substr(0, kCommand.size())) != kCommand) return std::nullopt;
  text.remove_prefix(kCommand.size());
  const auto shareEnd = text.find(' ');
  if (shareEnd == std::string_view::npos) return std::nullopt;
  NetUseLine line;
  line.share = text.substr(0, shareEnd);
  if (!splitSharePath(line.share)) return std::nullopt;

  const auto behindShare = text.substr(shareEnd + 1);
  auto upper = asciiUpper(behindShare);
  const WipedAtEnd wiped(upper);
  const auto userSwitch = upper.rfind(kUserSwitch);
  if (userSwitch != std::string_view::npos) {
    line.password = behindShare.substr(0, userSwitch);
    line.account = behindShare.substr(userSwitch + kUserSwitch.size());
    return line;
  }
  if (asciiUpper(trimBlanks(behindShare)) != kDeleteSwitch) return std::nullopt;
  line.request = NetUseLine::Request::Disconnect;
  return line;
}

}  // namespace varnhold::platform
