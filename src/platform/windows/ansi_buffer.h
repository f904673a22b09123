#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace varnhold::platform::windows {

/// One string on its way through a library: in the ANSI code page, closed by a NUL, in a buffer of its own
/// that the library may overwrite. Wiped when it goes, since it may hold a password.
class AnsiBuffer {
 public:
  /// Of `size` bytes, or of more where the text and its NUL need them; filled up with NULs.
  AnsiBuffer(std::string_view text, std::size_t size);
  ~AnsiBuffer();
  AnsiBuffer(AnsiBuffer&&) = default;
  AnsiBuffer(const AnsiBuffer&) = delete;
  AnsiBuffer& operator=(const AnsiBuffer&) = delete;
  AnsiBuffer& operator=(AnsiBuffer&&) = delete;

  [[nodiscard]] char* data() { return bytes_.data(); }

  /// Brings the buffer back into the text that it was made of: what stands before its first NUL. What the
  /// library left alone keeps its letters, also those that the code page does not know.
  void readBack(std::string& text) const;
  /// The same in the text's own length, with the NULs that the library wrote into it.
  void readBackInOwnLength(std::string& text) const;
  /// The whole buffer, NULs included, as UTF-8.
  [[nodiscard]] std::string whole() const;

 private:
  std::size_t length_ = 0;  ///< of the text alone
  std::string bytes_, before_;
};

}  // namespace varnhold::platform::windows
