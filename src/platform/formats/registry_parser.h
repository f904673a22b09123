#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/formats/registry_file.h"

namespace varnhold::platform {

inline constexpr std::string_view kRegistryFileVersion = "Windows Registry Editor Version 5.00";

/// Reads the text of a registry file, line by line, from its first to its last. For one use by
/// `RegistryFile::parse`.
class RegistryFileParser {
 public:
  /// `text` is UTF-8 without NULs; it and `error` outlive the parser.
  RegistryFileParser(std::string_view text, RegistryFileError& error) : text_(text), error_(error) {}

  [[nodiscard]] std::optional<RegistryFile> parse();

 private:
  bool readVersion();
  bool readLine();
  bool readHeader();
  bool readValue();
  bool readData(RegistryValue& value);
  bool readQuoted(std::string& text);
  bool readNumber(std::string& bytes);
  bool readHex(RegistryValue& value);
  bool readHexType(std::uint32_t& type);
  bool readHexBytes(std::string& bytes);
  bool readContinuation();
  bool endValue(const RegistryValue& value, std::string& tail);

  [[nodiscard]] bool atEnd() const { return at_ == text_.size(); }
  [[nodiscard]] bool atLineEnd() const {
    return atEnd() || rest().starts_with('\n') || rest().starts_with("\r\n");
  }
  [[nodiscard]] bool atBlankOrComment() const { return atLineEnd() || rest().starts_with(';'); }
  [[nodiscard]] std::string_view rest() const { return text_.substr(at_); }
  [[nodiscard]] std::string_view lineRest() const;
  bool take(std::string_view expected);
  void skipBlanks();
  void skipLineEnd();
  bool fail(std::string what) { return failAt(at_, std::move(what)); }
  bool failAt(std::size_t position, std::string what);

  std::string_view text_;
  RegistryFileError& error_;
  std::size_t at_ = 0;
  std::size_t lineStart_ = 0;  ///< of the line being read, before its blanks
  RegistryFile file_{RegistryFile::Empty{}};
  RegistryFile::Key* key_ = nullptr;  ///< of the last header
};

}  // namespace varnhold::platform
