#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// Windows of other programs in memory, and those that this program announced. Journal lines:
/// `PreviousInstance <title> -> no`, `FindWindow <title> -> 5`, `SetForegroundWindow 5 -> yes`,
/// `ShowWindow 5 3 -> yes`, `AnnounceWindow <title>`, `WithdrawWindow <title>`.
class FakeDesktop : public platform::Desktop {
 public:
  explicit FakeDesktop(Journal& journal) : journal_(journal) {}

  /// A window of another program.
  struct Window {
    bool visible = true;
    bool takesForeground = true;
  };

  std::set<std::string> otherInstances;   ///< titles that another process is the instance of
  std::map<std::string, Window> windows;  ///< of other programs, by title
  bool announces = true;                  ///< the result of announceWindow
  /// What other programs ask of the announced window, by its title, at the next `answerRequests`.
  std::vector<std::pair<std::string, std::optional<platform::ShowState>>> requests;

  [[nodiscard]] bool isAnnounced(const std::string& title) const { return announced_.contains(title); }

  bool isPreviousInstanceRunning(const std::string& title) override;
  platform::WindowHandle findWindow(const std::string& title) override;
  bool setForegroundWindow(platform::WindowHandle window) override;
  bool showWindow(platform::WindowHandle window, platform::ShowState state) override;
  bool announceWindow(const std::string& title, ShowRequest onRequest) override;
  void withdrawWindow(const std::string& title) override;
  void answerRequests() override;

 private:
  [[nodiscard]] Window* at(platform::WindowHandle window);

  Journal& journal_;
  std::vector<std::string> handles_;  ///< the title behind handle 5, 6, ...
  std::map<std::string, ShowRequest> announced_;
};

}  // namespace varnhold::fakes
