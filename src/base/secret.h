#pragma once

#include <string>

namespace varnhold {

/// Overwrites the text with NULs, in a way that no compiler leaves out, and empties it: for passwords, once
/// they are not needed any more.
template <typename Char>
void wipe(std::basic_string<Char>& secret) noexcept {
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

}  // namespace varnhold
