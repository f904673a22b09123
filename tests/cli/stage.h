#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace varnhold::cli {

/// A home provisioned by the real provisioning tool, with a recording library before the companion, in which
/// the real program is run. One at a time in a process: each new stage begins from an empty folder.
class Stage {
 public:
  /// In the lab are the manager's own computer and `labComputers` of the mixture.
  explicit Stage(int labComputers = 0);

  /// A computer of the lab, with `hostIni` as its description.
  void addComputer(const std::string& name, const std::string& hostIni);
  /// A file in the home.
  void writeFile(const std::string& name, const std::string& bytes);
  /// Puts another companion library into the home: "recorder" (as at first) or "hollow", which has no
  /// function.
  void putLibrary(const std::string& folder);
  void takeLibraryAway();
  /// Puts the companion itself there, without a recorder before it.
  void putCompanion();
  [[nodiscard]] std::filesystem::path home() const { return home_; }
  /// The companion library of the build, which the recorder hands each call on to.
  [[nodiscard]] static std::filesystem::path companionLibrary();

  struct Outcome {
    int exitStatus = -1;
    std::string standardError;
    std::vector<std::string> log;    ///< the lines that this run added to AILog.txt; stamps become "<time>"
    std::vector<std::string> calls;  ///< the library calls of this run; the home's path becomes "<home>"
  };
  /// Runs the program with these arguments.
  Outcome run(const std::vector<std::string>& arguments);

  /// `System_Table` in the order of names: name|type|address.
  [[nodiscard]] static std::vector<std::string> computers();
  /// `Module_Table` in the order of names: name|module|directory|manual|agentless.
  [[nodiscard]] static std::vector<std::string> agents();
  /// A statement of the test's own on the inventory.
  static void execute(const std::string& statement);

 private:
  std::filesystem::path home_;
  std::size_t logLinesSeen_ = 0;
};

}  // namespace varnhold::cli
