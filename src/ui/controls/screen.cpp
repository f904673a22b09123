#include "ui/controls/screen.h"

namespace varnhold::ui {
namespace {

BoxIcon boxIcon(platform::MessageIcon icon) {
  switch (icon) {
    case platform::MessageIcon::Exclamation:
      return BoxIcon::Exclamation;
    case platform::MessageIcon::Critical:
      return BoxIcon::Critical;
    case platform::MessageIcon::Information:
      break;
  }
  return BoxIcon::Information;
}

}  // namespace

Screen::Screen(Toolkit& toolkit, std::string appTitle)
    : toolkit_(toolkit),
      appTitle_(std::move(appTitle)),
      dispatcher_([this](const RuntimeError& error) { report(error); }, [this] { endLoops(); }),
      forms_(toolkit, dispatcher_) {}

Answer Screen::MsgBox(MessageBox box) {
  stopIfEnded();
  if (box.title.empty()) box.title = appTitle_;
  const auto answer = toolkit_.messageBox(box, ActiveForm());
  stopIfEnded();
  return answer;
}

void Screen::messageBox(const std::string& text, platform::MessageIcon icon) {
  MsgBox({.text = text, .icon = boxIcon(icon)});
}

void Screen::systemModalBox(const std::string& text, platform::MessageIcon icon) {
  MsgBox({.text = text, .icon = boxIcon(icon), .systemModal = true});
}

std::string Screen::InputBox(const std::string& prompt) {
  stopIfEnded();
  auto answer = toolkit_.inputBox(prompt, appTitle_, ActiveForm());
  stopIfEnded();
  return answer;
}

bool Screen::ShowOpen(FileDialog& dialog) {
  stopIfEnded();
  auto chosen = toolkit_.openFile(dialog, ActiveForm());
  stopIfEnded();
  if (!chosen) return false;
  dialog.FileName = *std::move(chosen);
  return true;
}

void Screen::DoEvents() {
  stopIfEnded();
  toolkit_.pumpEvents();
  stopIfEnded();
}

void Screen::End() {
  dispatcher_.end();
}

int Screen::run(const std::function<void()>& start) {
  dispatch(start);
  if (!hasEnded() && forms_.isAnyShown()) toolkit_.runLoop();
  forms_.closeAll();
  return dispatcher_.hasFailed() ? 1 : 0;
}

void Screen::dispatch(const std::function<void()>& deed) {
  dispatcher_.dispatch(deed);
  if (dispatcher_.isIdle() && !forms_.isAnyShown()) toolkit_.quitLoop();
}

void Screen::changed(const PropertyBase&) {
  toolkit_.setPointer(MousePointer);
}

void Screen::report(const RuntimeError& error) {
  const auto text = "Run-time error '" + std::to_string(error.number()) + "':\r\n\r\n" + error.description();
  toolkit_.messageBox({.text = text, .icon = BoxIcon::Critical, .title = appTitle_}, ActiveForm());
}

void Screen::endLoops() {
  forms_.endModalLoops();
  toolkit_.quitLoop();
}

}  // namespace varnhold::ui
