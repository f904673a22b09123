#pragma once

#include <map>
#include <memory>
#include <vector>

#include <wx/weakref.h>

#include "ui/controls/toolkit.h"
#include "ui/wx/views.h"

class wxTimer;
class wxWindow;

namespace varnhold::ui::wx {

class WxFormWindow;

/// Forms on a screen, with wxWidgets. One at a time in a process, on the thread that runs the program.
class WxToolkit : public ui::Toolkit {
 public:
  /// Starts wxWidgets. Throws a RuntimeError (51) that says what to do where there is no screen.
  explicit WxToolkit(Views views);
  ~WxToolkit() override;
  WxToolkit(const WxToolkit&) = delete;
  WxToolkit& operator=(const WxToolkit&) = delete;

  std::unique_ptr<FormWindow> createWindow(Form& form) override;
  void runLoop() override;
  void quitLoop() override;
  void pumpEvents() override;
  Answer messageBox(const MessageBox& box, Form* owner) override;
  std::string inputBox(const std::string& prompt, const std::string& title, Form* owner) override;
  std::optional<std::string> openFile(const FileDialog& dialog, Form* owner) override;
  void setPointer(Pointer pointer) override;
  void setTimer(Timer& timer, std::uint32_t intervalMs) override;
  [[nodiscard]] Size workArea() const override;

  /// The window that shows the form, or nothing; for views and tests.
  [[nodiscard]] wxWindow* windowOf(const Form* form) const;

 private:
  friend class WxFormWindow;

  /// A modal window's loop is under way. Windows that are done with meanwhile go behind the last of them,
  /// since one of them may be what runs.
  class ModalRun {
   public:
    explicit ModalRun(WxToolkit& toolkit) : toolkit_(toolkit) { ++toolkit_.modalRuns_; }
    ModalRun(const ModalRun&) = delete;
    ModalRun& operator=(const ModalRun&) = delete;
    ~ModalRun();

   private:
    WxToolkit& toolkit_;
  };

  void bury(wxWindow& window);

  Views views_;
  std::vector<WxFormWindow*> windows_;
  std::vector<wxWeakRef<wxWindow>> buried_;
  int modalRuns_ = 0;
  std::map<Timer*, std::unique_ptr<wxTimer>> timers_;
  bool pointerIsSet_ = false;
};

}  // namespace varnhold::ui::wx
