#pragma once

#include <string>
#include <utility>

namespace varnhold {

/// Overwrites the text with NULs, in a way that no compiler leaves out, and empties it: for passwords, once
/// they are not needed any more. What a longer text has left in its memory goes too.
template <typename Char>
void wipe(std::basic_string<Char>& secret) noexcept {
  secret.resize(secret.capacity());
  volatile Char* letters = secret.data();
  for (std::size_t i = 0; i < secret.size(); ++i) letters[i] = Char{};
  secret.clear();
}

/// Wipes a text when it goes out of use, whatever the way there.
template <typename Char>
class WipedAtEnd {
 public:
  explicit WipedAtEnd(std::basic_string<Char>& secret) noexcept : secret_(secret) {}
  ~WipedAtEnd() { wipe(secret_); }
  WipedAtEnd(const WipedAtEnd&) = delete;
  WipedAtEnd& operator=(const WipedAtEnd&) = delete;

 private:
  std::basic_string<Char>& secret_;
};

/// A text that is wiped wherever it goes out of use: for a password that is kept for a while. Reads as its
/// text.
class Secret {
 public:
  Secret() = default;
  explicit Secret(std::string&& text) noexcept { takeFrom(text); }
  Secret(const Secret&) = default;
  Secret(Secret&& other) noexcept { takeFrom(other.text_); }
  Secret& operator=(Secret other) noexcept {
    takeFrom(other.text_);
    return *this;
  }
  ~Secret() { wipe(text_); }

  operator const std::string&() const noexcept {  // NOLINT(google-explicit-constructor): reads as its text
    return text_;
  }

 private:
  void takeFrom(std::string& text) noexcept {
    text_.swap(text);
    wipe(text);
  }

  std::string text_;
};

}  // namespace varnhold
