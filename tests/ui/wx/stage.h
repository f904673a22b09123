#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <string>

#include "tests/fakes/journal.h"
#include "ui/controls/form.h"
#include "ui/controls/screen.h"
#include "ui/wx/bind_command_button.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_toolkit.h"

namespace varnhold::ui::wx {

/// The one toolkit of the test program. It can show the forms of the program,
/// and frmA, frmB and frmC once they have views.
class Stage {
 public:
  /// Made with the first use; gone behind the last test.
  static Stage& theOne();

  /// Turns the event loop until `done`, for two seconds at most; false where it never was.
  bool waitFor(const std::function<bool()>& done);

  WxToolkit& toolkit() { return *toolkit_; }
  /// The view of the forms called `name`, from now on.
  void setView(const std::string& name, View view) { views_[name] = std::move(view); }

 private:
  Stage();

  std::map<std::string, View> views_;
  std::unique_ptr<WxToolkit> toolkit_;
};

/// A test with a real screen.
class WxTest : public testing::Test {
 protected:
  /// Lets the screen come to rest: everything posted has run, everything shown is painted.
  void settle();

  Stage& stage = Stage::theOne();
  Screen screen{stage.toolkit(), "Varnhold - System Manager"};
  fakes::Journal journal;
};

/// A form with one control, laid out by `make`, which gives the control's widget.
template <class Kind>
class OneControlForm : public Form {
 public:
  using Make = std::function<wxWindow*(wxWindow* parent, Kind& control)>;

  template <class... Design>
  OneControlForm(Screen& screen, Make make, Design&&... design)
      : Form(screen, "frmA"), control(std::forward<Design>(design)...) {
    adopt({{"cmdOther", other}, {"control", control}});
    Stage::theOne().setView("frmA", [this, make](wxWindow& inside, Form&) {
      auto* sizer = new wxBoxSizer(wxVERTICAL);
      widget_ = make(&inside, control);
      sizer->Add(widget_, wxSizerFlags(1).Expand());
      sizer->Add(bindCommandButton(&inside, other));
      inside.SetSizer(sizer);
    });
  }

  Kind control;
  CommandButton other{"Other"};

  template <class Widget>
  [[nodiscard]] Widget& widget() const {
    return dynamic_cast<Widget&>(*widget_);
  }

 private:
  wxWindow* widget_ = nullptr;
};

/// The event that a widget sends of itself when a user works it.
void sendCommand(wxWindow& widget, wxEventType type, int value = 0);

}  // namespace varnhold::ui::wx
