#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/accounts.h"
#include "platform/clock.h"
#include "platform/closed_libraries.h"
#include "platform/desktop.h"
#include "platform/environment.h"
#include "platform/event_log.h"
#include "platform/files.h"
#include "platform/heap.h"
#include "platform/posix/companion_library.h"
#include "platform/posix/path_resolver.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/security_package.h"
#include "platform/service_control.h"
#include "platform/threads.h"
#include "platform/ui.h"

/// One maker for each port. What an adapter takes by reference outlives it. A port that reaches other
/// computers does so through the companion library: where that is missing, its calls raise the errors of
/// `CompanionLibrary`.
namespace varnhold::platform::posix {

/// How long a writer waits for another one of the registry file before it gives up.
inline constexpr std::chrono::milliseconds kRegistryLockWait{10'000};

[[nodiscard]] std::unique_ptr<Clock> makeClock();
/// `home` is the program's folder; `arguments` are those behind the program's name.
[[nodiscard]] std::unique_ptr<Environment> makeEnvironment(std::string home,
                                                           std::vector<std::string> arguments,
                                                           PathResolver& paths);
/// The registry of `registry.reg` in the home.
[[nodiscard]] std::unique_ptr<Registry> makeRegistry(const std::string& home,
                                                     std::chrono::milliseconds lockWait = kRegistryLockWait);
[[nodiscard]] std::unique_ptr<Files> makeFiles(PathResolver& paths);
[[nodiscard]] std::unique_ptr<Processes> makeProcesses(Files& files, PathResolver& paths,
                                                       CompanionLibrary& companion);
[[nodiscard]] std::unique_ptr<ServiceControl> makeServiceControl(CompanionLibrary& companion);
[[nodiscard]] std::unique_ptr<EventLog> makeEventLog(CompanionLibrary& companion);
[[nodiscard]] std::unique_ptr<Threads> makeThreads(CompanionLibrary& companion);
/// `logonControl` is the library `VhwLogonCtrl`.
[[nodiscard]] std::unique_ptr<ClosedLibraries> makeClosedLibraries(CompanionLibrary& companion,
                                                                   CompanionLibrary& logonControl);
[[nodiscard]] std::unique_ptr<Accounts> makeAccounts(CompanionLibrary& companion);
[[nodiscard]] std::unique_ptr<Heap> makeHeap();
/// NTLM over GSSAPI. `userFile` holds the accounts of the accepting role, a line `DOMAIN:user:password` for
/// each; it is the file that `NTLM_USER_FILE` names in the environment of the process, where the mechanism
/// looks for it. It must be its owner's alone; otherwise there are no credentials for that role.
[[nodiscard]] std::unique_ptr<SecurityPackage> makeSecurityPackage(std::string userFile);
/// How long who asks for another program's window waits for its answer.
inline constexpr std::chrono::milliseconds kWindowAnswerWait{2'000};
/// The programs of this user that share the home.
[[nodiscard]] std::unique_ptr<Desktop> makeDesktop(std::string home,
                                                   std::chrono::milliseconds patience = kWindowAnswerWait);
/// Writes to standard error and never waits.
[[nodiscard]] std::unique_ptr<Ui> makeUnattendedUi();

}  // namespace varnhold::platform::posix
