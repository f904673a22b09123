// What moving many computers between the lists of the wizard costs: 100,000 rows against 10,000, at most 40
// times as much, whether all move, one half that stands together, or every second one. Ten times is what the
// rows make, the rest what memory costs that no cache holds; rows moved one at a time would cost 100 times.
#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "core/program.h"
#include "deployment/frmLogin.h"
#include "deployment/frmRemedialActionHelp.h"
#include "deployment/frmTargets.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/scripted_ui.h"

namespace {

using namespace varnhold;

constexpr double kGrowthLimit = 40.0;
constexpr int kSmall = 10'000, kLarge = 100'000, kRounds = 5;

[[noreturn]] void fail(const char* what) {
  std::cerr << what << '\n';
  std::exit(EXIT_FAILURE);
}

/// The wizard without an inventory: what is taken back out of the choice is not offered again.
class Wizard {
 public:
  /// Milliseconds of processor time of a click on "Add" for the selected of `rows` candidates.
  double add(int rows, const std::function<bool(int)>& isSelected) {
    return move(targets_.lvSelect, targets_.cmdAdd, rows, isSelected);
  }
  /// The same for "Remove" among chosen ones.
  double remove(int rows, const std::function<bool(int)>& isSelected) {
    return move(targets_.lvSelected, targets_.cmdRemove, rows, isSelected);
  }

 private:
  double move(ui::ListView& list, ui::CommandButton& button, int rows,
              const std::function<bool(int)>& isSelected) {
    targets_.lvSelect.ListItems.Clear();
    targets_.lvSelected.ListItems.Clear();
    int left = rows;
    for (int i = 0; i < rows; ++i) {
      auto& row = list.ListItems.Add("COMPUTER" + std::to_string(1'000'000 + i));
      row.Tag = "Unmanaged";
      if (!isSelected(i)) continue;
      row.Selected = true;
      --left;
    }
    const auto start = std::clock();
    button.Click.raise();
    const auto milliseconds = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    if (list.ListItems.Count() != left) fail("the rows did not move");
    return milliseconds;
  }

  fakes::FakeHost fake_;
  fakes::ScriptedUi ui_{fake_.journal};
  core::Program program_{fake_.host(), core::kManagerTitle};
  ui::ListView lvListView_;
  ui::TreeView tvTreeView_;
  ui::ImageList imlIcons_{{"row"}};
  deployment::frmLogin login_{program_, ui_.screen};
  deployment::frmRemedialActionHelp remedialHelp_{program_, ui_.screen};
  deployment::frmTargets targets_{
      program_, ui_.screen, {lvListView_, tvTreeView_, imlIcons_, {}, {}}, login_, remedialHelp_};
};

struct Case {
  const char* name;
  double (*run)(Wizard&, int rows);
};
constexpr Case kCases[] = {
    {"Add of all", [](Wizard& wizard, int rows) { return wizard.add(rows, [](int) { return true; }); }},
    {"Add of the upper half",
     [](Wizard& wizard, int rows) { return wizard.add(rows, [rows](int row) { return row < rows / 2; }); }},
    {"Add of every second",
     [](Wizard& wizard, int rows) { return wizard.add(rows, [](int row) { return row % 2 == 0; }); }},
    {"Remove of all", [](Wizard& wizard, int rows) { return wizard.remove(rows, [](int) { return true; }); }},
    {"Remove of every second",
     [](Wizard& wizard, int rows) { return wizard.remove(rows, [](int row) { return row % 2 == 0; }); }},
};

}  // namespace

int main() {
  Wizard wizard;
  bool withinLimits = true;
  for (const auto& [name, run] : kCases) {
    double small = 1e9, large = 1e9;
    for (int round = 0; round < kRounds; ++round) {
      // In turns, so that a busy machine slows both; what disturbs one only ever adds to it.
      small = std::min(small, run(wizard, kSmall));
      large = std::min(large, run(wizard, kLarge));
    }
    std::cout << name << ": " << large << " ms for 100,000 rows, " << large / small
              << " times that of 10,000 (at most " << kGrowthLimit << ")\n";
    withinLimits &= large / small <= kGrowthLimit;
  }
  return withinLimits ? EXIT_SUCCESS : EXIT_FAILURE;
}
