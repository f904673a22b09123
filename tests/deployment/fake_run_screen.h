#pragma once

#include <functional>
#include <map>
#include <string>

#include "deployment/run_screen.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// A run screen in memory. Journal lines: `progress 5`, `pump events`, `refresh`, `status 1: <text>`, `errors
/// seen`.
class FakeRunScreen : public deployment::RunScreen {
 public:
  explicit FakeRunScreen(Journal& journal) : journal_(journal) {}

  std::int32_t value = 0;                     ///< of the progress bar
  std::map<std::int32_t, std::string> names;  ///< of the systems, by row
  std::function<void()> onPump;               ///< what a handler does meanwhile

  std::int32_t progress() override { return value; }
  void setProgress(std::int32_t newValue) override {
    value = newValue;
    journal_.push_back("progress " + std::to_string(newValue));
  }
  void pumpEvents() override {
    journal_.push_back("pump events");
    if (onPump) onPump();
  }
  void refresh() override { journal_.push_back("refresh"); }
  std::string systemName(std::int32_t row) override { return names.at(row); }
  void setStatus(std::int32_t row, const std::string& text) override {
    journal_.push_back("status " + std::to_string(row) + ": " + shown(text));
  }
  void setErrorsSeen() override { journal_.push_back("errors seen"); }

 private:
  Journal& journal_;
};

}  // namespace varnhold::fakes
