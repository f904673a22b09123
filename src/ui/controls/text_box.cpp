#include "ui/controls/text_box.h"

#include <algorithm>

#include "base/secret.h"
#include "base/unicode.h"
#include "ui/controls/collection_errors.h"
#include "ui/controls/form.h"

namespace varnhold::ui {
namespace {

void checkPosition(const int& value) {
  if (value < 0) raiseInvalidValue("SelStart or SelLength", "it is below 0");
}

int lengthOf(std::string_view text) {
  int length = 0;
  for (std::size_t at = 0; at < text.size(); ++length) (void)nextCodePoint(text, at);
  return length;
}

/// Where character number `position` begins, in bytes; the end for a position behind the text.
std::size_t byteOf(std::string_view text, int position) {
  std::size_t at = 0;
  while (position-- > 0 && at < text.size()) (void)nextCodePoint(text, at);
  return at;
}

}  // namespace

TextBox::TextBox() : SelStart(*this, 0, checkPosition), SelLength(*this, 0, checkPosition) {}

TextBox::TextBox(std::string text) : TextBox() {
  Text.settle(std::move(text));
}

void TextBox::SelectAll() {
  SelStart = 0;
  SelLength = lengthOf(Text.get());
}

void TextBox::userType(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto character = nextCodePoint(text, at);
    if (character == kNotUtf8) continue;
    act([&] { enter(character); });
    if (form() != nullptr && form()->ActiveControl() != this) return;
  }
}

void TextBox::enter(char32_t character) {
  if (Locked) return;
  auto key = static_cast<int>(character);
  KeyPress.raise(key);
  if (key == 0) return;
  if (key == kKeyBack) {
    if (SelLength == 0 && SelStart > 0) {
      SelStart.settle(std::min<int>(SelStart, lengthOf(Text.get())) - 1);
      SelLength.settle(1);
    }
    replaceSelection("");
    return;
  }
  if (MaxLength > 0 && lengthOf(Text.get()) - SelLength >= MaxLength) return;
  std::string entered;
  appendUtf8(entered, static_cast<char32_t>(key));
  replaceSelection(entered);
}

void TextBox::replaceSelection(std::string_view with) {
  const auto first = byteOf(Text.get(), SelStart);
  const auto last = byteOf(Text.get(), SelStart + SelLength);
  const std::string& now = Text;
  std::string text;
  text.reserve(now.size() + with.size());
  text.append(now, 0, first).append(with).append(now, last);
  edit(std::move(text), lengthOf(Text.get().substr(0, first)) + lengthOf(with));
}

void TextBox::userEdit(const std::string& text, int caret) {
  act([&] {
    if (Locked) {
      syncView();
    } else {
      edit(text, caret);
    }
  });
}

void TextBox::edit(std::string text, int caret) {
  SelStart.settle(caret);
  SelLength.settle(0);
  const bool differs = text != Text.get();
  wipePassword();
  Text.settle(std::move(text));
  syncView();
  if (differs) Change.raise();
}

void TextBox::userSelect(int start, int length) {
  act([&] {
    SelStart.settle(std::max(start, 0));
    SelLength.settle(std::max(length, 0));
  });
}

void TextBox::restoreDesign() {
  wipePassword();
  Control::restoreDesign();
}

/// What takes the text's place would only free its memory. The property is this box's own and is set next.
void TextBox::wipePassword() {
  if (!PasswordChar.get().empty()) wipe(const_cast<std::string&>(Text.get()));
}

void TextBox::changed(const PropertyBase& property) {
  const bool isText = &property == &Text;
  if (isText) {
    SelStart.settle(0);
    SelLength.settle(0);
  }
  Control::changed(property);
  if (isText) Change.raise();
}

}  // namespace varnhold::ui
