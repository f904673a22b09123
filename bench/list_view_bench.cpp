// What a list of 100,000 computers of 5 columns costs on a screen: refresh, sorting by each column, selecting
// all, scrolling; each on the side of the control and on the side of the widget until it is painted. And the
// memory that a row takes over the empty list: at most 1,000 bytes, so that 100,000 stay below 100 MB. Run it
// under cmake/run-under-xvfb. Filling an empty list and selecting all are the only ones whose cost grows with
// the rows: a GtkTreeView has a node for each row, and marks each of them. The rows that are not seen are
// marked in the turns of the event loop that follow, of which each is short.
#include <benchmark/benchmark.h>
#include <wx/dataview.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

#include "ui/controls/form.h"
#include "ui/controls/list_view.h"
#include "ui/controls/screen.h"
#include "ui/wx/bind_list_view.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_toolkit.h"

namespace {

using namespace varnhold::ui;

constexpr int kRows = 100000;
constexpr const char* kColumns[] = {"Computer", "Type", "Description", "System Status", "Port"};

class ListForm : public Form {
 public:
  explicit ListForm(Screen& screen) : Form(screen, "frmList") {
    Width = 12000;
    Height = 9000;
    list.MultiSelect = true;
    list.SmallIcons = &pictures;
    for (const auto* head : kColumns) list.ColumnHeaders.Add(head);
    adopt({{"list", list}});
  }
  ImageList pictures{{"computer"}};
  ListView list;
};

/// The one window of the program, with the list on it.
class Stage {
 public:
  static Stage& theOne() {
    static Stage stage;
    return stage;
  }

  /// The widget has caught up with the control, and is painted.
  void show() {
    toolkit_.pumpEvents();
    widget_->Update();
  }

  /// How many the widget shows as selected.
  [[nodiscard]] int selectedRows() const {
    return dynamic_cast<const wxDataViewCtrl&>(*widget_).GetSelectedItemsCount();
  }

 private:
  Stage() {
    form_.Show();
    show();
  }

  wxWindow* widget_ = nullptr;
  wx::WxToolkit toolkit_{{{"frmList", [this](wxWindow& inside, Form&) {
                             widget_ = wx::bindListView(&inside, form_.list);
                             auto* sizer = new wxBoxSizer(wxVERTICAL);
                             sizer->Add(widget_, wxSizerFlags(1).Expand());
                             inside.SetSizer(sizer);
                           }}}};
  Screen screen_{toolkit_, "Varnhold - System Manager"};
  ListForm form_{screen_};

 public:
  ListView& list = form_.list;
};

void fill(ListView& list) {
  const ListView::BulkUpdate update(list);
  list.ListItems.Clear();
  list.Sorted = false;
  for (int i = 0; i < kRows; ++i) {
    const int number = static_cast<int>(i * 7919LL % kRows);
    auto& row = list.ListItems.Add("COMPUTER" + std::to_string(1000000 + number));
    row.SmallIcon = 1;
    row.Tag = "10." + std::to_string(number / 65536) + "." + std::to_string(number / 256 % 256) + "." +
              std::to_string(number % 256);
    row.SubItems(1) = number % 3 == 0 ? "Windows XP" : "Windows Server 2003";
    row.SubItems(2) = number % 5 == 0 ? "-none-" : "Room " + std::to_string(number % 977);
    row.SubItems(3) = number % 2 == 0 ? "Unmanaged" : "Managed - Standard Mode";
    row.SubItems(4) = number % 2 == 0 ? "" : "8040";
  }
  list.Sorted = true;
}

double secondsOf(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Measures the widget's side of `act`; the control's own is told beside it.
void measure(benchmark::State& state, const auto& act) {
  auto& stage = Stage::theOne();
  double controlSeconds = 0;
  for (auto _ : state) {
    controlSeconds += secondsOf([&] {
      act(stage.list);
      stage.list.ListItems.settleOrder();
    });
    state.SetIterationTime(secondsOf([&] { stage.show(); }));
  }
  state.counters["control_ms"] =
      benchmark::Counter(controlSeconds * 1000, benchmark::Counter::kAvgIterations);
}

void fillEmptyList(benchmark::State& state) {
  auto& stage = Stage::theOne();
  for (auto _ : state) {
    stage.list.ListItems.Clear();
    stage.show();
    fill(stage.list);
    stage.list.ListItems.settleOrder();
    state.SetIterationTime(secondsOf([&] { stage.show(); }));
  }
}

void refresh(benchmark::State& state) {
  measure(state, fill);
}

void sortByColumn(benchmark::State& state) {
  const int column = static_cast<int>(state.range(0));
  measure(state, [column](ListView& list) {
    list.SortKey = (column + 1) % 5;
    list.SortKey = column;
    list.SortOrder = column == 0 ? SortOrder::Ascending : SortOrder::Descending;
    list.Sorted = true;
  });
}

/// Measures the first turn of the event loop behind `act`, in which the rows that are seen change; beside it
/// the longest of those that follow, and all together, until `count` rows are shown selected.
void measureSelecting(benchmark::State& state, int countBefore, const auto& before, int count,
                      const auto& act) {
  auto& stage = Stage::theOne();
  double longest = 0, whole = 0;
  for (auto _ : state) {
    before(stage.list);
    while (stage.selectedRows() != countBefore) stage.show();
    act(stage.list);
    const double first = secondsOf([&] { stage.show(); });
    state.SetIterationTime(first);
    whole += first;
    while (stage.selectedRows() != count) {
      const double turn = secondsOf([&] { stage.show(); });
      longest = std::max(longest, turn);
      whole += turn;
    }
  }
  state.counters["longest_ms"] = longest * 1000;
  state.counters["whole_ms"] = benchmark::Counter(whole * 1000, benchmark::Counter::kAvgIterations);
}

void selectAll(benchmark::State& state) {
  measureSelecting(
      state, 1, [](ListView& list) { list.userClick(1); }, kRows,
      [](ListView& list) { list.userSelectAll(); });
}

void selectOneOfAll(benchmark::State& state) {
  measureSelecting(
      state, kRows, [](ListView& list) { list.userSelectAll(); }, 1,
      [](ListView& list) { list.userClick(1); });
}

void scrollToTheEndAndBack(benchmark::State& state) {
  bool atEnd = false;
  measure(state, [&atEnd](ListView& list) {
    atEnd = !atEnd;
    list.ListItems(atEnd ? kRows : 1).EnsureVisible();
  });
}

BENCHMARK(refresh)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(fillEmptyList)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(sortByColumn)->DenseRange(0, 4)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(selectAll)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(selectOneOfAll)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(scrollToTheEndAndBack)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

/// What the process holds in memory, in bytes.
double residentBytes() {
  std::ifstream status("/proc/self/statm");
  double total = 0, resident = 0;
  status >> total >> resident;
  return resident * 4096;
}

}  // namespace

int main(int count, char** values) {
  auto& stage = Stage::theOne();
  const double empty = residentBytes();
  fill(stage.list);
  stage.show();
  const double perRow = (residentBytes() - empty) / kRows;
  std::printf("memory of a row, in the control and on the screen: %.0f bytes\n", perRow);

  benchmark::Initialize(&count, values);
  benchmark::RunSpecifiedBenchmarks();
  std::fflush(stdout);
  return perRow <= 1000 ? 0 : 1;
}
