#pragma once

#include <string>
#include <string_view>

namespace varnhold::ui {

/// The letter that stands behind a single "&" in a caption, in upper case; 0 where there is none. "&&" is an
/// ampersand.
[[nodiscard]] char32_t mnemonicOf(std::string_view caption);

/// The caption as it reads on the screen, without the sign of its mnemonic.
[[nodiscard]] std::string withoutMnemonic(std::string_view caption);

}  // namespace varnhold::ui
