#pragma once

#include <string_view>

#include "core/program.h"
#include "tests/fakes/fake_accounts.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_event_log.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_libraries.h"
#include "tests/fakes/fake_registry.h"
#include "tests/fakes/fake_security_package.h"
#include "tests/fakes/fake_services.h"
#include "tests/fakes/fake_small_ports.h"
#include "tests/fakes/fake_threads.h"
#include "tests/fakes/journal.h"

namespace varnhold::fakes {

/// A whole host in memory, with one journal for all that it is asked.
struct FakeHost {
  Journal journal;
  FakeRegistry registry{journal};
  FakeServiceControl services{journal};
  FakeEventLog eventLog{journal};
  FakeFiles files{journal};
  FakeProcesses processes{journal};
  FakeThreads threads{journal};
  FakeClock clock{journal};
  FakeEnvironment environment{journal};
  FakeClosedLibraries libraries{journal, threads};
  FakeUi ui{journal};
  FakeDesktop desktop{journal};
  FakeAccounts accounts{journal};
  FakeSecurityPackage security{journal, "security"}, secur32{journal, "secur32"};
  FakeHeap heap{journal};

  FakeHost() = default;
  FakeHost(const FakeHost&) = delete;
  FakeHost& operator=(const FakeHost&) = delete;

  [[nodiscard]] core::Host host() { return host(ui); }
  /// With another user interface than the fake's own.
  [[nodiscard]] core::Host host(platform::Ui& screen) {
    return {registry,  services, eventLog, files,    processes, threads, clock, environment,
            libraries, screen,   desktop,  accounts, security,  secur32, heap};
  }
  /// For the `Program` of a test: each statement that goes to the inventory as a line `SQL: <text>`.
  [[nodiscard]] store::Connection::StatementListener statementListener() {
    return [this](std::string_view statement) { journal.push_back("SQL: " + shown(statement)); };
  }
};

}  // namespace varnhold::fakes
