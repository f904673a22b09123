#pragma once

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
#include "store/connection.h"

namespace varnhold::platform {
class HostAdapters;
}

namespace varnhold::core {

inline constexpr const char* kManagerTitle = "Varnhold - System Manager";
inline constexpr const char* kChangesTitle = "Tessmark? Agent Manager";

/// The host, as the program sees it. The adapters outlive the program.
struct Host {
  platform::Registry& registry;
  platform::ServiceControl& services;
  platform::EventLog& eventLog;
  platform::Files& files;
  platform::Processes& processes;
  platform::Threads& threads;
  platform::Clock& clock;
  platform::Environment& environment;
  platform::ClosedLibraries& libraries;
  platform::Ui& ui;
  platform::Desktop& desktop;
  platform::Accounts& accounts;
  platform::SecurityPackage& security;  ///< the library of that name, where `gUseSecurityDll` is set
  platform::SecurityPackage& secur32;
  platform::Heap& heap;
};

/// The host behind these adapters, with `ui` for what the program says to its user.
[[nodiscard]] Host hostOf(platform::HostAdapters& adapters, platform::Ui& ui);

/// What lives as long as the process. Built once by `app` and passed by reference; main thread only.
struct Program {
  Program(Host hostAdapters, std::string appTitle, store::Connection::StatementListener listener = {});

  Host host;
  /// Which of the two products the program shows itself as: a constant of the build.
  const std::string AppTitle;

  std::string gAppPath;        ///< folder of the running program, without closing backslash
  std::string gDbPath;         ///< folder of the inventory's database file
  store::Connection gConn;     ///< the open inventory
  std::string gLocalName;      ///< this computer's name, or "LocalHost"
  std::string gInstallerDir;   ///< `<INSTALLPATH>\RemoteInstaller`; empty while `INSTALLPATH` can't be read
  std::string gEventsConsole;  ///< `"<INSTALLPATH>\VHConsole.exe"`, quotes included; empty when not installed
  std::string
      gTrapsConsole;  ///< `"<SWINSTALLPATH>\SWConsole.exe"`, quotes included; empty when not installed
  std::string
      gChangesConsole;        ///< `"<LocalRootDir>\TkWindows.exe"`, quotes included; empty when not installed
  std::string gChangesRoot;   ///< `LocalRootDir` of the change-tracking product that was found
  std::string gChangesName;   ///< display name of the change-tracking product
  std::string gExplorerPath;  ///< never assigned, deliberately: its tool has no command
  std::string gServiceToolPath;    ///< never assigned, deliberately: its tool has no command
  bool gClosing = false;           ///< the main form is closing
  bool gCompactConfirmed = false;  ///< the operator's answer before a compaction
  /// Background threads of the console: network enumeration, adding a domain, adding a subnet, and a fourth
  /// that is only ever cleared. 0 is none; the second and third are -1 where a start is requested.
  platform::ThreadHandle gEnumThread = 0, gDomainThread = 0, gSubnetThread = 0, gSpareThread = 0;
  std::int32_t gCliAction = 0;                           ///< command-line installer: 1 install, 2 uninstall
  std::string gLoginDomain, gLoginUser, gLoginPassword;  ///< the account that the operator logged in with
  bool gUseSecurityDll = false;  ///< accounts are checked by the library `security`, not `secur32`
  bool gLoginOK = false;         ///< the last prompt for it was answered; read by no one, deliberately
};

}  // namespace varnhold::core
