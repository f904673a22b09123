#pragma once

#include <functional>
#include <memory>

#include <wx/weakref.h>

#include "ui/controls/form.h"
#include "ui/controls/toolkit.h"
#include "ui/wx/views.h"

class wxActivateEvent;
class wxDialog;
class wxTopLevelWindow;
class wxKeyEvent;
class wxWindow;

namespace varnhold::ui::wx {

class FormMenus;
class WxToolkit;

/// A form's window: a frame where the form has a menu bar, else a dialog.
class WxFormWindow : public FormWindow {
 public:
  WxFormWindow(Form& form, View view, WxToolkit& toolkit);
  ~WxFormWindow() override;
  WxFormWindow(const WxFormWindow&) = delete;
  WxFormWindow& operator=(const WxFormWindow&) = delete;

  void sync() override;
  void show(Form* owner, bool modal) override;
  void hide() override;
  void runModal() override;
  void endModal() override;
  void bringToFront() override;
  void refresh() override;
  MenuItem* popUp(const MenuItem& menu) override;

  [[nodiscard]] const Form& form() const { return form_; }
  /// The toolkit's window; nothing until the form is shown.
  [[nodiscard]] wxTopLevelWindow* frame() const { return frame_.get(); }

 private:
  void build(wxTopLevelWindow* owner);
  void listen();
  void bury();
  void activated(wxActivateEvent& event);
  void keyDown(wxKeyEvent& event);
  [[nodiscard]] bool answersMnemonic(char32_t letter) const;
  void post(std::function<void()> act);
  void awaitRelease();
  void reportSizeSoon();
  void reportSize();
  void showIcon();
  void showSize();
  void showState();
  [[nodiscard]] wxDialog* dialog() const;

  Form& form_;
  View view_;
  WxToolkit& toolkit_;
  wxWeakRef<wxTopLevelWindow> frame_;
  wxWindow* inside_ = nullptr;
  wxTopLevelWindow* owner_ = nullptr;
  std::unique_ptr<FormMenus> menus_;
  // What the window was last made to show, so that only what the form has changed since is set again.
  Size shownSize_;
  bool sizeReportPending_ = false;
  bool wasActive_ = false;
  bool painted_ = false;
  std::shared_ptr<int> life_ = std::make_shared<int>();
};

}  // namespace varnhold::ui::wx
