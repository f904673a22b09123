#include "ui/wx/form_window.h"

#include <algorithm>

#include "ui/controls/caption.h"
#include "ui/wx/acts.h"
#include "ui/wx/common_values.h"
#include "ui/wx/icons.h"
#include "ui/wx/keyboard_focus.h"
#include "ui/wx/keys.h"
#include "ui/wx/menus.h"
#include "ui/wx/tab_order.h"
#include "ui/wx/twips.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_text.h"
#include "ui/wx/wx_toolkit.h"

namespace varnhold::ui::wx {
namespace {

long dialogStyle(BorderStyle border, bool hasOwner) {
  const long owned = hasOwner ? 0L : wxDIALOG_NO_PARENT;
  switch (border) {
    case BorderStyle::None:
      return owned | wxBORDER_NONE;
    case BorderStyle::Sizable:
      return owned | wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX | wxMINIMIZE_BOX;
    case BorderStyle::FixedDialog:
      break;
  }
  return owned | wxDEFAULT_DIALOG_STYLE;
}

wxTopLevelWindow* makeFrame(const Form& form, wxTopLevelWindow* owner) {
  const auto caption = shown(form.Caption);
  if (FormMenus::hasBar(form)) return new wxFrame(owner, wxID_ANY, caption);
  auto* dialog = new wxDialog(owner, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize,
                              dialogStyle(form.BorderStyle, owner != nullptr));
  // Escape is the form's business.
  dialog->SetEscapeId(wxID_NONE);
  return dialog;
}

WindowState stateOf(const wxTopLevelWindow& frame) {
  if (frame.IsIconized()) return WindowState::Minimized;
  return frame.IsMaximized() ? WindowState::Maximized : WindowState::Normal;
}

}  // namespace

WxFormWindow::WxFormWindow(Form& form, View view, WxToolkit& toolkit)
    : form_(form), view_(std::move(view)), toolkit_(toolkit) {
  toolkit_.windows_.push_back(this);
}

WxFormWindow::~WxFormWindow() {
  std::erase(toolkit_.windows_, this);
  bury();
}

void WxFormWindow::bury() {
  menus_.reset();
  if (!frame_) return;
  // It is there for a while yet, is told when it goes, and may be due to be laid out: nothing of it reaches
  // this.
  for (wxWindow* const window : {static_cast<wxWindow*>(frame_.get()), inside_})
    window->SetEvtHandlerEnabled(false);
  toolkit_.bury(*frame_);
  frame_ = nullptr;
}

void WxFormWindow::build(wxTopLevelWindow* owner) {
  bury();
  owner_ = owner;
  frame_ = makeFrame(form_, owner);
  inside_ = new wxPanel(frame_);
  view_(*inside_, form_);
  putInTabOrder(*inside_, form_);
  menus_ = std::make_unique<FormMenus>(form_, *frame_);

  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(inside_, wxSizerFlags(1).Expand());
  frame_->SetSizerAndFit(sizer);
  shownSize_ = {};
  wasActive_ = false;
  sync();
  frame_->CentreOnParent();
  listen();
}

void WxFormWindow::listen() {
  frame_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    if (event.CanVeto()) event.Veto();
    post([this] { form_.userClose(); });
  });
  frame_->Bind(wxEVT_CHAR_HOOK, &WxFormWindow::keyDown, this);
  frame_->Bind(wxEVT_ACTIVATE, &WxFormWindow::activated, this);
  const auto resized = [this](wxEvent& event) {
    event.Skip();
    reportSizeSoon();
  };
  frame_->Bind(wxEVT_SIZE, resized);
  frame_->Bind(wxEVT_ICONIZE, resized);
  frame_->Bind(wxEVT_MAXIMIZE, resized);
  inside_->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
    event.Skip();
    painted_ = true;
  });
}

void WxFormWindow::post(std::function<void()> act) {
  acts().post([life = std::weak_ptr<int>(life_), act = std::move(act)] {
    if (!life.expired()) act();
  });
}

void WxFormWindow::activated(wxActivateEvent& event) {
  event.Skip();
  // When it comes up the form gives the focus by itself.
  if (!event.GetActive() || !std::exchange(wasActive_, true)) return;
  post([this] {
    if (frame_) keepKeysHeard(*frame_, form_, nullptr);
  });
}

void WxFormWindow::keyDown(wxKeyEvent& event) {
  const int modifiers = modifiersOf(event);
  const int key = keyOf(event.GetKeyCode());
  const auto letter = static_cast<char32_t>(event.GetUnicodeKey());
  if (modifiers == kAlt && letter != 0 && answersMnemonic(letter)) {
    post([this, letter] { form_.userMnemonic(letter); });
    return;
  }
  if (key == 0 || !form_.usesKey(key, modifiers)) event.Skip();
  if (key != 0) post([this, key, modifiers] { form_.userKeyDown(key, modifiers); });
}

bool WxFormWindow::answersMnemonic(char32_t letter) const {
  // The menu bar's own mnemonics are the toolkit's to answer.
  return std::any_of(form_.controls().begin(), form_.controls().end(), [&](const Control* control) {
    return dynamic_cast<const MenuItem*>(control) == nullptr && control->isReachable() &&
           mnemonicOf(control->mnemonicText()) == letter;
  });
}

void WxFormWindow::sync() {
  if (!frame_) return;
  frame_->SetTitle(shown(form_.Caption));
  showIcon();
  if (frame_->IsThisEnabled() != form_.Enabled.get()) frame_->Enable(form_.Enabled);
  setPointer(*frame_, form_.MousePointer);
  showSize();
  showState();
}

void WxFormWindow::showIcon() {
  // A form without an icon of its own bears that of the form it belongs to.
  if (!form_.Icon.get().empty()) {
    frame_->SetIcons(windowIcon(form_.Icon));
  } else if (owner_ != nullptr) {
    frame_->SetIcons(owner_->GetIcons());
  }
}

void WxFormWindow::showSize() {
  const Size wanted{form_.Width, form_.Height};
  if (wanted.width == shownSize_.width && wanted.height == shownSize_.height) return;
  shownSize_ = wanted;
  const auto now = frame_->GetSize();
  frame_->SetSize(wanted.width == 0 ? now.x : pixels(*frame_, wanted.width),
                  wanted.height == 0 ? now.y : pixels(*frame_, wanted.height));
}

void WxFormWindow::showState() {
  const WindowState wanted = form_.WindowState;
  if (wanted == stateOf(*frame_)) return;
  if (wanted == WindowState::Minimized) {
    frame_->Iconize();
  } else if (wanted == WindowState::Maximized) {
    frame_->Maximize();
  } else if (frame_->IsIconized()) {
    frame_->Iconize(false);
  } else {
    frame_->Maximize(false);
  }
}

void WxFormWindow::reportSizeSoon() {
  if (std::exchange(sizeReportPending_, true)) return;
  post([this] {
    sizeReportPending_ = false;
    reportSize();
  });
}

void WxFormWindow::reportSize() {
  if (!frame_ || !frame_->IsShown()) return;
  const auto state = stateOf(*frame_);
  const auto size = frame_->GetSize();
  // A minimised window keeps the size that it comes back with.
  if (state != WindowState::Minimized) shownSize_ = {twips(*frame_, size.x), twips(*frame_, size.y)};
  const bool differs = shownSize_.width != form_.Width.get() || shownSize_.height != form_.Height.get() ||
                       state != form_.WindowState.get();
  if (differs) form_.userResize(shownSize_.width, shownSize_.height, state);
}

void WxFormWindow::show(Form* owner, bool) {
  auto* ownerWindow = wxDynamicCast(toolkit_.windowOf(owner), wxTopLevelWindow);
  if (!frame_ || owner_ != ownerWindow) build(ownerWindow);
  frame_->Show();
  frame_->Raise();
  reportSizeSoon();
}

void WxFormWindow::hide() {
  // A modal dialog ends its loop by this, and gives the other windows back to the user first.
  if (frame_) frame_->Hide();
}

wxDialog* WxFormWindow::dialog() const {
  return wxDynamicCast(frame_.get(), wxDialog);
}

void WxFormWindow::runModal() {
  const WxToolkit::ModalRun run(toolkit_);
  if (auto* modal = dialog()) modal->ShowModal();
}

void WxFormWindow::endModal() {
  auto* modal = dialog();
  if (modal != nullptr && modal->IsModal()) modal->EndModal(wxID_CANCEL);
}

void WxFormWindow::bringToFront() {
  if (frame_) frame_->Raise();
}

void WxFormWindow::refresh() {
  if (!frame_ || !frame_->IsShown() || frame_->IsIconized()) return;
  // Painting takes turns of the event loop on some hosts; the user's acts wait meanwhile.
  const Acts::Hold hold(acts());
  constexpr int kMostTurns = 20;
  wxTheApp->ProcessPendingEvents();
  painted_ = false;
  inside_->Refresh();
  for (int turn = 0; turn < kMostTurns && !painted_; ++turn) {
    toolkit_.pumpEvents();
    inside_->Update();
    wxMilliSleep(5);
  }
}

MenuItem* WxFormWindow::popUp(const MenuItem& menu) {
  if (!frame_) return nullptr;
  awaitRelease();
  return menus_->popUp(menu);
}

// On GTK a menu that comes up under a button that is down closes when it goes up.
void WxFormWindow::awaitRelease() {
  const Acts::Hold hold(acts());
  constexpr int kMostTurns = 400;
  for (int turn = 0; turn < kMostTurns && wxGetMouseState().RightIsDown(); ++turn) wxMilliSleep(5);
  toolkit_.pumpEvents();
}

}  // namespace varnhold::ui::wx
