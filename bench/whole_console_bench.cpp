// The whole console on a screen, with 100,000 computers, as many agent rows and 1,000 groups: it can be used
// within a second of the time that filling its list takes by itself, and takes at most 100 MB more than the
// console over an empty inventory. Run it under cmake/run-under-xvfb, with
// ODBCINI=<build>/inventories/whole_console_bench/odbc.ini.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>

#include "bench/large_inventory.h"
#include "console/forms.h"
#include "tests/fakes/fake_host.h"
#include "tests/fakes/test_inventory.h"
#include "ui/controls/screen.h"
#include "ui/wx/views.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_toolkit.h"

namespace {

using namespace varnhold;

constexpr int kComputers = 100'000, kGroups = 1'000;
constexpr double kSecondsLimit = 1, kMegabytesLimit = 100;

struct Figures {
  double usableSeconds = 0;  ///< from showing the console until it is painted and has no event left
  double listSeconds = 0;    ///< of these, what filling the list takes by itself
  double megabytes = 0;      ///< resident, with the list on the screen
};

double secondsOf(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double residentMegabytes() {
  std::ifstream status("/proc/self/statm");
  double total = 0, resident = 0;
  status >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

Figures runConsole() {
  fakes::FakeHost fake;
  ui::wx::WxToolkit toolkit(ui::wx::allViews());
  ui::Screen screen(toolkit, core::kManagerTitle);
  core::Program program(fake.host(screen), core::kManagerTitle);
  program.gConn.Open("qrvdb", "", "");
  console::Forms forms(program, screen);
  forms.frmNetAccessSel.AutoDiscover = false;
  Figures figures;
  screen.run([&] {
    figures.usableSeconds = secondsOf([&] {
      forms.frmMain.Show();
      toolkit.pumpEvents();
      toolkit.windowOf(&forms.frmMain)->Update();
    });
    figures.megabytes = residentMegabytes();
    figures.listSeconds = secondsOf([&] {
      if (!forms.frmMain.LoadAllComputers("Reading...")) std::abort();
    });
    screen.End();
  });
  return figures;
}

/// In a process of its own: what one console has held says nothing of the next.
std::optional<Figures> measure(int computers, int groups) {
  const fakes::TestInventory inventory;
  bench::fillInventory(computers, groups);
  int ends[2];
  if (pipe(ends) != 0) return std::nullopt;
  Figures figures;
  if (fork() == 0) {
    figures = runConsole();
    const bool told = write(ends[1], &figures, sizeof figures) == static_cast<ssize_t>(sizeof figures);
    _exit(told ? 0 : 1);
  }
  const bool heard = read(ends[0], &figures, sizeof figures) == static_cast<ssize_t>(sizeof figures);
  wait(nullptr);
  if (!heard) return std::nullopt;
  std::cout << computers << " computers: usable after " << figures.usableSeconds
            << " s, of which the list takes " << figures.listSeconds << " s; " << figures.megabytes
            << " MB\n";
  return figures;
}

bool isWithin(const char* what, double value, double limit) {
  std::cout << what << ": " << value << " (at most " << limit << ")\n";
  return value <= limit;
}

}  // namespace

int main() {
  const auto empty = measure(0, 0);
  const auto full = measure(kComputers, kGroups);
  if (!empty || !full) {
    std::cerr << "a console came to no end\n";
    return EXIT_FAILURE;
  }
  const bool seconds =
      isWithin("Seconds beside the list's", full->usableSeconds - full->listSeconds, kSecondsLimit);
  const bool megabytes =
      isWithin("Megabytes over the empty console", full->megabytes - empty->megabytes, kMegabytesLimit);
  return seconds && megabytes ? EXIT_SUCCESS : EXIT_FAILURE;
}
