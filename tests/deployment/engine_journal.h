#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/deployment/engine_fixture.h"

namespace varnhold::deployment {

/// A run of an engine of which the whole journal is looked at: calls of the library, statements, messages,
/// statuses, lines of the log and the bar, in their order.
class EngineJournalTest : public EngineTest {
 protected:
  using EngineTest::EngineTest;

  /// The journal is these parts, one behind the other.
  void expectJournal(const std::vector<Lines>& parts) {
    EXPECT_THAT(fake.journal, testing::ElementsAreArray(together(parts)));
  }

  static std::string progress(int mark) { return "Progress " + std::to_string(mark); }
  static std::string findsDetails(const std::string& name, bool answers = true) {
    return "qrvFindSystemAndReturnDetails " + name + " level 1 -> " + (answers ? "1" : "0");
  }
  static std::string resolves(const std::string& name, bool known = true) {
    return "qrvGetSystemIPAddress " + name + " -> " + (known ? "1" : "0");
  }
  /// The job's thread is found at its end.
  static Lines ends(int thread, int exitCode) {
    return {"GetExitCodeThread " + std::to_string(thread) + " -> " + std::to_string(exitCode),
            "CloseHandle " + std::to_string(thread)};
  }
  /// Before that it is found running so many times, while the bar goes on from `mark`.
  static Lines runs(int thread, int polls, int mark) {
    Lines lines;
    for (int poll = 1; poll <= polls; ++poll) {
      lines.insert(lines.end(), {"GetExitCodeThread " + std::to_string(thread) + " -> 259",
                                 progress(mark + poll), "Sleep 200"});
    }
    return lines;
  }
  /// The row says so, and the log before it.
  static Lines fault(const std::string& name, const std::string& words) {
    return {logged(name + " - " + words), status(name, words)};
  }
  static Lines skipped(const std::string& name, const std::string& reason) {
    return {logged("Skipped: " + name + " - " + reason), status(name, "Skipped: " + reason)};
  }

  static inline const std::string kFailed180 =
      "Failed to create service. This may be due to insufficient permission or network problems.";
  static inline const std::string kNotStarted =
      "Unknown error. This may be due to insufficient permission or network problems.";
  static inline const std::string kNotResolved = "Could not resolve the IP Address for the system.";
  static inline const std::string kNoConfiguration =
      "Could not create the configuration file on the local system.";
  static inline const std::string kLocal = "Skipped: Manager (local system)";
  static inline const std::string kInaccessible = "Not Accessible, will be skipped.";
  static inline const std::string kStandard = "Managed - Standard Mode";
  static inline const std::string kIni =
      R"(qrvCReadNWriteVhaConfigINI4Turbo C:\VARNHOLD\RemoteInstaller\Agent\vhagent )"
      R"(C:\VARNHOLD\RemoteInstaller\Agent C:\VARNHOLD\RemoteInstaller\Agent\vhaconfig.ini )";
  static inline const std::string kRestart = "qrvRestartService MANAGER Varnhold Agent -> 1";
};

}  // namespace varnhold::deployment
