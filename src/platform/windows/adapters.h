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
[[nodiscard]] std::unique_ptr<Accounts> makeAccounts();
[[nodiscard]] std::unique_ptr<Heap> makeHeap();
/// SSPI as the system's library of that name has it, "security" or "secur32".
[[nodiscard]] std::unique_ptr<SecurityPackage> makeSecurityPackage(std::string library);

/// `folder` (without closing backslash) is the only place where `qrvUtil.dll` and `VhwLogonCtrl.dll` are
/// looked for. A library that was loaded stays so until the process ends, since its worker threads may
/// outlive every owner of this object.
[[nodiscard]] std::unique_ptr<ClosedLibraries> makeClosedLibraries(const std::string& folder);

/// Messages go to the process's standard error as UTF-8 lines; a program without one that was started from a
/// console writes there.
[[nodiscard]] std::unique_ptr<Ui> makeUnattendedUi();

}  // namespace varnhold::platform::windows
