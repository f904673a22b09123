#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/accounts.h"
#include "platform/clock.h"
#include "platform/closed_libraries.h"
#include "platform/desktop.h"
#include "platform/environment.h"
#include "platform/event_log.h"
#include "platform/files.h"
#include "platform/heap.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/security_package.h"
#include "platform/service_control.h"
#include "platform/threads.h"
#include "platform/ui.h"

namespace varnhold::platform {

/// How the process was started.
struct ProcessStart {
  int argc = 0;
  char** argv = nullptr;
  /// On a host whose stand-ins live in one folder, the home to use instead of the environment's; other hosts
  /// take no notice.
  std::optional<std::string> home;
};

/// Every port of the host that the program was built for. The library of each host defines the maker.
class HostAdapters {
 public:
  virtual ~HostAdapters() = default;

  virtual Registry& registry() = 0;
  virtual ServiceControl& services() = 0;
  virtual EventLog& eventLog() = 0;
  virtual Files& files() = 0;
  virtual Processes& processes() = 0;
  virtual Threads& threads() = 0;
  virtual Clock& clock() = 0;
  virtual Environment& environment() = 0;
  virtual ClosedLibraries& libraries() = 0;
  virtual Desktop& desktop() = 0;
  virtual Accounts& accounts() = 0;
  /// The libraries `security` and `secur32`. A host that has one such library gives it as both.
  virtual SecurityPackage& security() = 0;
  virtual SecurityPackage& secur32() = 0;
  virtual Heap& heap() = 0;
  /// Writes messages to standard error and never waits: for runs without a person.
  virtual Ui& unattendedUi() = 0;
};

/// Makes the host's adapters, and readies the process for its data sources (where ODBC looks for them).
[[nodiscard]] std::unique_ptr<HostAdapters> makeHostAdapters(const ProcessStart& start);

}  // namespace varnhold::platform
