#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace varnhold::session {

/// A password that is told by what stands behind its first letters: a text that is given up loses those first
/// of all. No memory holds it but that of `text()`'s results.
class MarkedPassword {
 public:
  /// Each letter of `letters` stands for its successor. More than `kLost` of them.
  explicit MarkedPassword(std::string letters) : letters_(std::move(letters)) {}

  /// How many letters may be gone.
  static constexpr std::size_t kLost = 16;

  /// The password; to be wiped by whoever asked.
  [[nodiscard]] std::string text() const;
  /// What it is told by, in UTF-8, and in UTF-16 with the lower byte first; to be wiped too. Found in both
  /// orders of bytes.
  [[nodiscard]] std::string mark() const;
  [[nodiscard]] std::string wideMark() const;

 private:
  std::string letters_;
};

/// The files below the folder, by their path from there, that hold the mark in UTF-8 or UTF-16. In the order
/// of their names.
[[nodiscard]] std::vector<std::string> filesHolding(const std::filesystem::path& folder,
                                                    const MarkedPassword& password);

/// How often the memory of this process that it may write to holds the mark, in UTF-8 or UTF-16.
[[nodiscard]] std::size_t countInMemory(const MarkedPassword& password);

}  // namespace varnhold::session
