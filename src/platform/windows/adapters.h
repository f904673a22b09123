#pragma once

#include <memory>
#include <string>

#include "platform/host_adapters.h"

/// The makers of the Win32 adapters, one per port.
namespace varnhold::platform::windows {

[[nodiscard]] std::unique_ptr<Registry> makeRegistry();
[[nodiscard]] std::unique_ptr<ServiceControl> makeServiceControl();
[[nodiscard]] std::unique_ptr<EventLog> makeEventLog();
[[nodiscard]] std::unique_ptr<Files> makeFiles();
[[nodiscard]] std::unique_ptr<Processes> makeProcesses();
[[nodiscard]] std::unique_ptr<Threads> makeThreads();
[[nodiscard]] std::unique_ptr<Clock> makeClock();
[[nodiscard]] std::unique_ptr<Environment> makeEnvironment();
[[nodiscard]] std::unique_ptr<Desktop> makeDesktop();

/// `folder` (without closing backslash) is the only place where `qrvUtil.dll` is looked for. A library that
/// was loaded stays so until the process ends, since its worker threads may outlive every owner of this
/// object.
[[nodiscard]] std::unique_ptr<ClosedLibraries> makeClosedLibraries(std::string folder);

/// Messages go to the process's standard error as UTF-8 lines; a program without one that was started from a
/// console writes there.
[[nodiscard]] std::unique_ptr<Ui> makeUnattendedUi();

}  // namespace varnhold::platform::windows
