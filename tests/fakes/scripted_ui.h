#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "tests/fakes/journal.h"
#include "ui/controls/form.h"
#include "ui/controls/screen.h"
#include "ui/controls/timer.h"
#include "ui/controls/toolkit.h"

namespace varnhold::fakes {

/// A toolkit without a window: a test writes down beforehand what the user will do, and reads in the journal
/// what was shown. Build it before any form; forms get its `screen`.
///
/// Journal lines:
///   `MessageBox exclamation: <text>`; with Yes and No, `MessageBox question: <text> -> No`; with a title of
///   its own, `MessageBox critical "<title>": <text>`; the icon is `plain` where there is none, and a system
///   modal box says `system modal` behind it `InputBox <prompt> -> <answer>`, `OpenFile
///   <title>|<filter>|<file name> -> <path or cancelled>` `Show frmWait`, `Show modal frmLogin`, `Close
///   frmLogin` (hidden or unloaded) `Pointer 11` (the screen's own, not that of a form or a control)
///   `PopupMenu mnuPopUpList -> <chosen entry or nothing>`
///
/// Whatever the program waits for and the test has not foreseen is a failure of the test: a modal form
/// without a script, a script that leaves its form shown, a question, a prompt or a file dialog without an
/// answer; and, at the end, a script or an answer that nobody asked for, and a run-time error that has ended
/// the program.
class ScriptedUi : public ui::Toolkit {
 public:
  /// What the user does on a form that was shown modally.
  using Script = std::function<void(ui::Form&)>;

  explicit ScriptedUi(Journal& journal, std::string appTitle = "Varnhold - System Manager");
  ~ScriptedUi() override;
  ScriptedUi(const ScriptedUi&) = delete;
  ScriptedUi& operator=(const ScriptedUi&) = delete;

  /// The user interface that stands on this toolkit.
  ui::Screen screen;

  /// The next form to be shown modally is `name`, and `script` runs on it; it must end with the form hidden
  /// or unloaded. Scripts are used in the order in which they were given, nested forms included.
  void nextModal(std::string name, Script script);
  /// The next question is answered so.
  void nextAnswer(ui::Answer answer) { answers_.push_back(answer); }
  /// The next prompt is answered so; empty is a cancelled one.
  void nextInput(std::string text) { inputs_.push_back(std::move(text)); }
  /// The next file dialog gives this path; nothing is a cancelled one.
  void nextFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
  /// In the next pop-up menu the user chooses the entry of this name. It is a failure where the menu does not
  /// offer it (not there, invisible or disabled). A pop-up menu without a choice is dismissed.
  void nextPopUp(std::string entry) { popUps_.push_back(std::move(entry)); }

  /// The test means the program to end by a run-time error; then it is a failure where it does not.
  bool endsByRunTimeError = false;
  /// What happens each time the program pumps events.
  std::function<void()> onPump;
  /// What the user does in the main loop; it returns when this does.
  std::function<void()> onLoop;
  /// How wide a screen there is, in twips.
  ui::Size area{15360, 11520};

  /// Lets time pass for the timers: each that is due ticks, in the order in which they fall due.
  void advance(std::uint32_t milliseconds);
  /// How many timers run.
  [[nodiscard]] std::size_t runningTimers() const { return timers_.size(); }

  std::unique_ptr<ui::FormWindow> createWindow(ui::Form& form) override;
  void runLoop() override;
  void quitLoop() override {}
  void pumpEvents() override;
  ui::Answer messageBox(const ui::MessageBox& box, ui::Form* owner) override;
  std::string inputBox(const std::string& prompt, const std::string& title, ui::Form* owner) override;
  std::optional<std::string> openFile(const ui::FileDialog& dialog, ui::Form* owner) override;
  void setPointer(ui::Pointer pointer) override;
  void setTimer(ui::Timer& timer, std::uint32_t intervalMs) override;
  ui::Size workArea() const override { return area; }

 private:
  class Window;

  struct ModalScript {
    std::string name;
    Script script;
  };
  struct RunningTimer {
    std::uint64_t intervalMs, dueMs;
  };

  /// False when there is no script.
  bool runScript(ui::Form& form);
  ui::MenuItem* choose(const ui::MenuItem& menu);
  [[nodiscard]] std::map<ui::Timer*, RunningTimer>::iterator nextDue();

  Journal& journal_;
  std::string appTitle_;
  std::deque<ModalScript> scripts_;
  std::deque<ui::Answer> answers_;
  std::deque<std::string> inputs_;
  std::deque<std::optional<std::string>> files_;
  std::deque<std::string> popUps_;
  std::map<ui::Timer*, RunningTimer> timers_;
  std::uint64_t nowMs_ = 0;
};

}  // namespace varnhold::fakes
