#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "startup/command_line_installer.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/test_inventory.h"

namespace varnhold::startup {

/// A manager named MANAGER with one computer, HOST1, on which all goes well, and an empty inventory.
class InstallerTest : public testing::Test {
 protected:
  using Lines = std::vector<std::string>;

  InstallerTest() {
    program.gConn.Open("qrvdb", "", "");
    program.gAppPath = fake.environment.folder;
    program.gInstallerDir = R"(C:\I\RemoteInstaller)";
    program.gLocalName = "MANAGER";
    fake.libraries.computers["HOST1"] = {};
    fake.libraries.onStore = [this](const platform::SystemDetails& details) { inventory.store(details); };
    fake.journal.clear();
  }

  void run(const std::string& arguments) {
    fake.environment.arguments = arguments;
    RunCommandLine(program);
  }
  fakes::FakeComputer& host1() { return fake.libraries.computers["HOST1"]; }
  void knowHost1() {
    platform::SystemDetails details;
    details.SystemName = "HOST1";
    details.SystemType = 7;
    inventory.store(details);
  }
  void raiseFrom(const std::string& function) {
    fake.libraries.failures.insert({function, RuntimeError(kFileNotFound, "No library.")});
  }

  /// The log's messages; every line has to carry the stamp.
  Lines log() const {
    Lines messages;
    for (auto& line : split(fake.files.content(kLog).value_or(""), '\n')) {
      if (line.empty()) continue;
      EXPECT_TRUE(line.starts_with(kStamp) && line.ends_with('\r')) << line;
      messages.push_back(line.substr(kStamp.size(), line.size() - kStamp.size() - 1));
    }
    return messages;
  }
  /// The calls of the closed library, by their names.
  Lines libraryCalls() const {
    Lines calls;
    for (const auto& line : fakes::linesOf(fake.journal, "qrv"))
      calls.push_back(line.substr(0, line.find(' ')));
    return calls;
  }
  Lines statements() const { return fakes::linesOf(fake.journal, "SQL: "); }
  /// The journal's line for a message in the log.
  static std::string logged(const std::string& message) {
    return "append " + kLog + ": " + kStamp + message + "<CR><LF> -> Done";
  }

  static inline const std::string kLog = R"(C:\VARNHOLD\AILog.txt)";
  static inline const std::string kStamp = "1/31/2026 4:05:09 PM :: ";
  static inline const std::string kPath = R"(%Program Files%\Kelmont Works\Varnhold)";

  fakes::FakeHost fake;
  fakes::TestInventory inventory;
  core::Program program{fake.host(), core::kManagerTitle, fake.statementListener()};
};

}  // namespace varnhold::startup
