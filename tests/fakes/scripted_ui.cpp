#include "tests/fakes/scripted_ui.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "ui/controls/menu_item.h"

namespace varnhold::fakes {
namespace {

const char* nameOf(ui::BoxIcon icon) {
  switch (icon) {
    case ui::BoxIcon::Information:
      return "information";
    case ui::BoxIcon::Exclamation:
      return "exclamation";
    case ui::BoxIcon::Critical:
      return "critical";
    case ui::BoxIcon::Question:
      return "question";
    case ui::BoxIcon::None:
      break;
  }
  return "plain";
}

/// The first of the queue, which the program has asked for; `otherwise` and a failure where there is none.
template <class T>
T take(std::deque<T>& queue, const std::string& askedFor, T otherwise) {
  if (queue.empty()) {
    ADD_FAILURE() << "nobody answers: " << askedFor;
    return otherwise;
  }
  auto first = std::move(queue.front());
  queue.pop_front();
  return first;
}

}  // namespace

/// A window that only tells the journal of itself.
class ScriptedUi::Window : public ui::FormWindow {
 public:
  Window(ScriptedUi& toolkit, ui::Form& form) : toolkit_(toolkit), form_(form) {}

  void sync() override {}
  void show(ui::Form*, bool modal) override {
    ended_ = false;
    toolkit_.journal_.push_back((modal ? "Show modal " : "Show ") + form_.Name());
  }
  void hide() override { toolkit_.journal_.push_back("Close " + form_.Name()); }
  void runModal() override {
    const bool hadScript = toolkit_.runScript(form_);
    if (ended_) return;
    if (hadScript)
      ADD_FAILURE() << "the user leaves " << form_.Name() << " open: the program would wait for ever";
    form_.Hide();
  }
  void endModal() override { ended_ = true; }
  void bringToFront() override {}
  void refresh() override {}
  ui::MenuItem* popUp(const ui::MenuItem& menu) override { return toolkit_.choose(menu); }

 private:
  ScriptedUi& toolkit_;
  ui::Form& form_;
  bool ended_ = false;
};

ScriptedUi::ScriptedUi(Journal& journal, std::string appTitle)
    : screen(*this, appTitle), journal_(journal), appTitle_(std::move(appTitle)) {}

ScriptedUi::~ScriptedUi() {
  for (const auto& script : scripts_) ADD_FAILURE() << "never shown modally: " << script.name;
  EXPECT_TRUE(answers_.empty()) << answers_.size() << " answers to questions that nobody asked";
  EXPECT_TRUE(inputs_.empty()) << inputs_.size() << " inputs that nobody asked for";
  EXPECT_TRUE(files_.empty()) << files_.size() << " files that nobody asked for";
  for (const auto& entry : popUps_) ADD_FAILURE() << "no pop-up menu to choose from: " << entry;
  EXPECT_EQ(screen.hasFailed(), endsByRunTimeError) << "whether a run-time error has ended the program";
}

void ScriptedUi::nextModal(std::string name, Script script) {
  scripts_.push_back({std::move(name), std::move(script)});
}

bool ScriptedUi::runScript(ui::Form& form) {
  const auto script = take(scripts_, "no script for the modal form " + form.Name(), ModalScript());
  if (script.script == nullptr) return false;
  EXPECT_EQ(form.Name(), script.name) << "another form is shown modally";
  script.script(form);
  return true;
}

std::unique_ptr<ui::FormWindow> ScriptedUi::createWindow(ui::Form& form) {
  return std::make_unique<Window>(*this, form);
}

void ScriptedUi::runLoop() {
  if (onLoop) onLoop();
}

void ScriptedUi::pumpEvents() {
  if (onPump) onPump();
}

ui::Answer ScriptedUi::messageBox(const ui::MessageBox& box, ui::Form*) {
  std::string line = std::string("MessageBox ") + nameOf(box.icon);
  if (box.systemModal) line += " system modal";
  if (box.title != appTitle_) line += " \"" + box.title + "\"";
  line += ": " + shown(box.text);
  if (box.buttons == ui::BoxButtons::Ok) {
    journal_.push_back(line);
    return ui::Answer::Ok;
  }
  const auto answer = take(answers_, line, ui::Answer::No);
  journal_.push_back(line + (answer == ui::Answer::Yes ? " -> Yes" : " -> No"));
  return answer;
}

std::string ScriptedUi::inputBox(const std::string& prompt, const std::string&, ui::Form*) {
  const auto line = "InputBox " + shown(prompt);
  auto answer = take(inputs_, line, std::string());
  journal_.push_back(line + " -> " + answer);
  return answer;
}

std::optional<std::string> ScriptedUi::openFile(const ui::FileDialog& dialog, ui::Form*) {
  const auto line = "OpenFile " + dialog.DialogTitle + "|" + dialog.Filter + "|" + dialog.FileName;
  auto path = take(files_, line, std::optional<std::string>());
  journal_.push_back(line + " -> " + path.value_or("cancelled"));
  return path;
}

void ScriptedUi::setPointer(ui::Pointer pointer) {
  journal_.push_back("Pointer " + std::to_string(static_cast<int>(pointer)));
}

ui::MenuItem* ScriptedUi::choose(const ui::MenuItem& menu) {
  const auto line = "PopupMenu " + menu.Name() + " -> ";
  if (popUps_.empty()) {
    journal_.push_back(line + "nothing");
    return nullptr;
  }
  const auto name = take(popUps_, line, std::string());
  journal_.push_back(line + name);
  const auto items = menu.Items();
  const auto found = std::find_if(items.begin(), items.end(), [&](const ui::MenuItem* item) {
    return item->Name() == name && item->isReachable() && !item->isSeparator();
  });
  if (found != items.end()) return *found;
  ADD_FAILURE() << menu.Name() << " does not offer " << name;
  return nullptr;
}

void ScriptedUi::setTimer(ui::Timer& timer, std::uint32_t intervalMs) {
  timers_.erase(&timer);
  if (intervalMs != 0) timers_[&timer] = {intervalMs, nowMs_ + intervalMs};
}

std::map<ui::Timer*, ScriptedUi::RunningTimer>::iterator ScriptedUi::nextDue() {
  return std::min_element(timers_.begin(), timers_.end(), [](const auto& a, const auto& b) {
    return a.second.dueMs != b.second.dueMs ? a.second.dueMs < b.second.dueMs
                                            : a.first->Name() < b.first->Name();
  });
}

void ScriptedUi::advance(std::uint32_t milliseconds) {
  const auto until = nowMs_ + milliseconds;
  for (auto due = nextDue(); due != timers_.end() && due->second.dueMs <= until; due = nextDue()) {
    nowMs_ = due->second.dueMs;
    due->second.dueMs += due->second.intervalMs;
    due->first->timeElapsed();
  }
  nowMs_ = until;
}

}  // namespace varnhold::fakes
