#pragma once

#include <functional>
#include <string>

#include "platform/ui.h"
#include "ui/controls/component.h"
#include "ui/controls/constants.h"
#include "ui/controls/dispatcher.h"
#include "ui/controls/form_stack.h"
#include "ui/controls/property.h"
#include "ui/controls/toolkit.h"

namespace varnhold::ui {

/// The one user interface of the program: what a handler asks of it, the dispatcher under which every handler
/// runs, and the stack of shown forms. Built once, over a toolkit, before any form. Main thread.
class Screen : public platform::Ui, public Component {
 public:
  /// `toolkit` outlives the screen. `appTitle` is the title of every box that has no other.
  Screen(Toolkit& toolkit, std::string appTitle);

  /// The pointer over all windows of the program; over the windows' and controls' own while it is not
  /// `Default`.
  Property<Pointer> MousePointer{*this, Pointer::Default};

  /// Shows a box and waits for its button. Nothing is activated when it goes away.
  Answer MsgBox(MessageBox box);
  /// A box with an OK button.
  void messageBox(const std::string& text, platform::MessageIcon icon) override;
  void systemModalBox(const std::string& text, platform::MessageIcon icon) override;
  /// Asks for a line of text; empty where the user cancels.
  [[nodiscard]] std::string InputBox(const std::string& prompt);
  /// Asks for a file. True when the user chose one, whose path then stands in `FileName`; else `dialog`
  /// stays.
  bool ShowOpen(FileDialog& dialog);
  /// Runs the events that wait. Any handler may run meanwhile.
  void DoEvents();
  /// Ends the program at once: no form is asked, no further statement of any handler runs. Never returns.
  [[noreturn]] void End();
  /// The form that lies on top, or nothing.
  [[nodiscard]] Form* ActiveForm() const { return forms_.top(); }
  /// The part of the screen that windows can have, in twips.
  [[nodiscard]] Size workArea() const { return toolkit_.workArea(); }

  /// The program's whole run: `start` (which shows the first form), then events until no form is shown any
  /// more or the program ends. Forms that are loaded but not shown by then end with it, without an event. The
  /// exit status: 0, or 1 when a run-time error ended it.
  int run(const std::function<void()>& start);

  /// Runs what came from outside, such as a user's act, under the dispatcher. Never throws; does nothing once
  /// the program has ended.
  void dispatch(const std::function<void()>& deed);
  /// Runs the handler of an event that code has set off; see `Dispatcher::raise`.
  void raise(const std::function<void()>& handler) { dispatcher_.raise(handler); }
  /// Unwinds the handlers when the program has ended meanwhile.
  void stopIfEnded() const { dispatcher_.stopIfEnded(); }
  [[nodiscard]] bool hasEnded() const { return dispatcher_.hasEnded(); }
  /// True when a run-time error has ended the program.
  [[nodiscard]] bool hasFailed() const { return dispatcher_.hasFailed(); }

  [[nodiscard]] FormStack& forms() { return forms_; }
  [[nodiscard]] Toolkit& toolkit() { return toolkit_; }
  [[nodiscard]] const std::string& appTitle() const { return appTitle_; }

 protected:
  void changed(const PropertyBase& property) override;
  void runHandler(const std::function<void()>& handler) const override { handler(); }

 private:
  void report(const RuntimeError& error);
  void endLoops();

  Toolkit& toolkit_;
  std::string appTitle_;
  Dispatcher dispatcher_;
  FormStack forms_;
};

}  // namespace varnhold::ui
