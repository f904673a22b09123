#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "ui/controls/constants.h"

/// What forms need of a toolkit: the seam that wx, or a test's scripted user interface, stands behind. Main
/// thread.
namespace varnhold::ui {

class Form;
class MenuItem;
class Timer;

enum class BoxIcon { None, Information, Exclamation, Critical, Question };
enum class BoxButtons { Ok, YesNo };
/// winuser.h, IDOK, IDYES, IDNO.
enum class Answer { Ok = 1, Yes = 6, No = 7 };

/// A message box.
struct MessageBox {
  std::string text;
  BoxIcon icon = BoxIcon::None;
  BoxButtons buttons = BoxButtons::Ok;
  /// Which of Yes and No Enter presses.
  Answer preset = Answer::Yes;
  /// Empty: the application title.
  std::string title = {};
  /// In front of every other program.
  bool systemModal = false;
};

/// A dialog that asks for a file to open.
struct FileDialog {
  std::string DialogTitle;
  /// Pairs of description and patterns, divided by "|": "Text (*.txt)|*.txt".
  std::string Filter;
  /// What stands in the box at first; a chosen file's whole path takes its place.
  std::string FileName;
};

/// A size in twips, 15 to a pixel at 100 %.
struct Size {
  int width = 0, height = 0;
};

/// A form's window. It makes the views of the form's controls and attaches them; its destructor destroys
/// them. The form stack calls it; it answers with nothing but the form's `user...` methods, from the event
/// loop.
class FormWindow {
 public:
  virtual ~FormWindow() = default;

  /// A value of the form has changed (caption, icon, pointer, size, state): re-read them all and show what
  /// differs.
  virtual void sync() = 0;
  /// Shows the window, in front of `owner` where there is one. A modal one from now on keeps the user from
  /// every other window of the program.
  virtual void show(Form* owner, bool modal) = 0;
  virtual void hide() = 0;
  /// Runs events until `endModal` is called. Called once at most behind each modal `show`.
  virtual void runModal() = 0;
  /// Makes `runModal` return as soon as the handlers under it have. Nothing where it does not run.
  virtual void endModal() = 0;
  virtual void bringToFront() = 0;
  /// Paints now what is still to be painted.
  virtual void refresh() = 0;
  /// Shows a pop-up menu at the pointer and waits; the chosen entry, or nothing.
  [[nodiscard]] virtual MenuItem* popUp(const MenuItem& menu) = 0;
};

class Toolkit {
 public:
  virtual ~Toolkit() = default;

  /// A window for the form, not yet shown, its views attached.
  [[nodiscard]] virtual std::unique_ptr<FormWindow> createWindow(Form& form) = 0;
  /// Runs events until `quitLoop` is called.
  virtual void runLoop() = 0;
  /// Makes `runLoop` return as soon as the handlers under it have. Nothing where it does not run.
  virtual void quitLoop() = 0;
  /// Runs the events that wait, and returns.
  virtual void pumpEvents() = 0;
  /// Shows the box, its title filled in, in front of `owner` where there is one, and waits.
  virtual Answer messageBox(const MessageBox& box, Form* owner) = 0;
  /// Asks for a line of text; empty where the user cancels.
  virtual std::string inputBox(const std::string& prompt, const std::string& title, Form* owner) = 0;
  /// The whole path of the chosen file, or nothing where the user cancels. May change the working directory.
  virtual std::optional<std::string> openFile(const FileDialog& dialog, Form* owner) = 0;
  /// The pointer over all windows of the program; `Default` lets each window and control have its own.
  virtual void setPointer(Pointer pointer) = 0;
  /// From now on calls `timer.timeElapsed()` from the event loop every `intervalMs`, until told otherwise; 0
  /// stops.
  virtual void setTimer(Timer& timer, std::uint32_t intervalMs) = 0;
  /// The part of the screen that windows can have.
  [[nodiscard]] virtual Size workArea() const = 0;
};

}  // namespace varnhold::ui
