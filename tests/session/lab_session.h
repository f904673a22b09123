#pragma once

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "tests/session/operators_console.h"

namespace varnhold::session {

/// Files and folders below a folder, by their path from there; a folder's content is "<folder>".
using Content = std::map<std::string, std::string>;

[[nodiscard]] std::string readFile(const std::filesystem::path& file);

/// A home whose inventory knows the twelve computers of its lab, and two groups of them: Desks with ATLAS and
/// BIRCH, Servers with EMBER. The discovery is in manual mode: nothing else ever gets into the inventory.
class LabSession : public testing::Test {
 protected:
  LabSession();

  /// The computer as it stands in the lab, without the locks of those who work on it.
  [[nodiscard]] Content lab(const std::string& name) const;
  /// The same of all twelve.
  [[nodiscard]] std::map<std::string, Content> labs() const;
  /// One of its files; empty where it has none of that name.
  [[nodiscard]] std::string labFile(const std::string& name, const std::string& path) const;
  /// A value of the agent's service there: state, account; empty without one.
  [[nodiscard]] std::string agentService(const std::string& name, const std::string& key) const;
  /// Adds lines to the computer's host.ini.
  void rehearse(const std::string& name, const std::string& lines);

  /// The records of the wizard's log, without their quotes.
  [[nodiscard]] Lines log() const;
  /// A text of the manager's registry, whose key is made where it is missing.
  static void setRegistry(OperatorsConsole& console, const char* key, const char* name,
                          const std::string& text);
  [[nodiscard]] static std::string registryText(OperatorsConsole& console, const char* key, const char* name);
  /// An agent in the inventory that no computer has.
  static void addAgentRow(const std::string& name, int module = 1, int agentless = 0);
  [[nodiscard]] std::string managerName() const;

  cli::Stage stage{12};
};

inline constexpr std::array<const char*, 12> kLabNames = {"ATLAS", "BIRCH",   "CEDAR",   "DELTA",
                                                          "EMBER", "FJORD",   "GROVE",   "HAVEN",
                                                          "INLET", "JUNIPER", "KESTREL", "LINDEN"};

/// `NAME: text` for each of the names.
[[nodiscard]] Lines eachWith(const Lines& names, const std::string& text);

}  // namespace varnhold::session
