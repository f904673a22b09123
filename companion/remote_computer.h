#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "companion/win32_error.h"
#include "platform/registry.h"

namespace varnhold::companion {

/// What is known of a computer before anything is done to it.
struct ComputerFacts {
  std::string name;
  std::string address;          ///< dotted; empty: the name does not resolve
  std::int32_t systemType = 0;  ///< a value of `System_Type`
  std::int32_t osMajor = 0;     ///< major version of the operating system
  std::string domain, description;
  std::string programFiles;  ///< "C:\Program Files"
};

/// The drives of a computer through its administrative shares. Paths are the computer's own:
/// "C:\folder\file", letters of either case; a path that is none of these gives kBadPathName.
class RemoteFiles {
 public:
  virtual ~RemoteFiles() = default;

  /// Reaches the computer and its share.
  [[nodiscard]] virtual Win32Error connect() = 0;
  [[nodiscard]] virtual bool isFolder(const std::string& path) = 0;
  /// The whole content; nothing when there is no such file or it cannot be read.
  [[nodiscard]] virtual std::optional<std::string> read(const std::string& path) = 0;
  /// Makes the file or replaces it whole.
  [[nodiscard]] virtual Win32Error write(const std::string& path, std::string_view bytes) = 0;
  [[nodiscard]] virtual Win32Error remove(const std::string& path) = 0;
  /// Makes one folder; the one above it must be there.
  [[nodiscard]] virtual Win32Error createFolder(const std::string& path) = 0;
  /// Removes one empty folder; kFolderNotEmpty when something lies in it.
  [[nodiscard]] virtual Win32Error removeFolder(const std::string& path) = 0;
  /// The names of the files and folders right below, in order; none when the folder is not there.
  [[nodiscard]] virtual std::vector<std::string> names(const std::string& path) = 0;
};

enum class ServiceStart { Automatic, Manual, Disabled };

struct ServiceEntry {
  std::string name;
  std::string path;  ///< the program's file
  std::string account = "LocalSystem";
  bool running = false;
  ServiceStart start = ServiceStart::Automatic;
  std::string description;
  bool secured = false;    ///< its access rights were configured
  bool interacts = false;  ///< may interact with the desktop
};

/// The service manager of a computer. Names compare without case.
class RemoteServices {
 public:
  virtual ~RemoteServices() = default;

  /// OpenSCManager.
  [[nodiscard]] virtual Win32Error open() = 0;
  /// Reads one service; kServiceMissing when there is none.
  [[nodiscard]] virtual Win32Error query(const std::string& name, ServiceEntry& entry) = 0;
  /// CreateService; kServiceExists when there is one of that name.
  [[nodiscard]] virtual Win32Error create(const ServiceEntry& entry) = 0;
  /// ChangeServiceConfig: all but the state; an empty password leaves the stored one.
  [[nodiscard]] virtual Win32Error change(const ServiceEntry& entry, const std::string& password) = 0;
  /// Gives the agent's service the rights that it needs on the computer.
  [[nodiscard]] virtual Win32Error secure(const std::string& name) = 0;
  /// StartService.
  [[nodiscard]] virtual Win32Error start(const std::string& name) = 0;
  /// ControlService with SERVICE_CONTROL_STOP.
  [[nodiscard]] virtual Win32Error stop(const std::string& name) = 0;
  /// DeleteService.
  [[nodiscard]] virtual Win32Error remove(const std::string& name) = 0;
};

struct NamedValue {
  std::string name;
  platform::RegistryValue value;
};

/// HKEY_LOCAL_MACHINE of a computer. Keys are paths with backslashes; names compare without case.
class RemoteRegistry {
 public:
  virtual ~RemoteRegistry() = default;

  /// RegConnectRegistry.
  [[nodiscard]] virtual Win32Error open() = 0;
  [[nodiscard]] virtual bool hasKey(const std::string& key) = 0;
  [[nodiscard]] virtual std::vector<NamedValue> values(const std::string& key) = 0;
  /// The names of the keys right below.
  [[nodiscard]] virtual std::vector<std::string> subkeys(const std::string& key) = 0;
  /// Makes one key; the one above it must be there.
  [[nodiscard]] virtual Win32Error createKey(const std::string& key) = 0;
  [[nodiscard]] virtual Win32Error set(const std::string& key, const NamedValue& value) = 0;
  [[nodiscard]] virtual Win32Error removeValue(const std::string& key, const std::string& name) = 0;
  /// Removes one key and its values; kAccessDenied when a key lies below it.
  [[nodiscard]] virtual Win32Error removeKey(const std::string& key) = 0;
};

/// Held while it lives.
class Hold {
 public:
  virtual ~Hold() = default;
};

/// One computer, as a transport reaches it. Any one thread at a time.
class RemoteComputer {
 public:
  virtual ~RemoteComputer() = default;

  [[nodiscard]] virtual const ComputerFacts& facts() const = 0;
  /// Does it answer at all?
  [[nodiscard]] virtual bool answers() const = 0;
  virtual RemoteFiles& files() = 0;
  virtual RemoteServices& services() = 0;
  virtual RemoteRegistry& registry() = 0;
  /// OpenEventLog, closed again at once.
  [[nodiscard]] virtual Win32Error openEventLog(std::string_view log) = 0;
  /// May this account use the administrative share ("C$")?
  [[nodiscard]] virtual Win32Error logOn(const std::string& account, const std::string& password) = 0;
  /// Reaches the agent that runs there over a socket; kConnectionRefused where none runs.
  [[nodiscard]] virtual Win32Error connectAgent() = 0;
  /// Gives the account with this SID ("S-1-5-...") the right to log on as a service.
  [[nodiscard]] virtual Win32Error grantServiceLogon(const std::string& sid) = 0;

  /// Keeps other jobs off this computer until the hold is released; waits for its turn.
  [[nodiscard]] virtual std::unique_ptr<Hold> beginJob() = 0;
  /// The error with which a rehearsed computer refuses the step of that name; kDone from a real one.
  [[nodiscard]] virtual Win32Error refusal(std::string_view step) const = 0;
};

/// How a rehearsed job goes; a real network leaves all of it open.
struct JobScript {
  bool noThread = false;                           ///< the call returns no thread
  std::optional<std::int32_t> result;              ///< the code that the job ends with
  std::optional<std::chrono::milliseconds> delay;  ///< how long the job waits before it works
  bool neverEnds = false;
};

/// The computers that can be reached. Any thread.
class Network {
 public:
  virtual ~Network() = default;

  /// Finds a computer by its name without case, or by its address; leading backslashes and surrounding blanks
  /// don't count. Nothing when there is none.
  [[nodiscard]] virtual std::unique_ptr<RemoteComputer> find(std::string_view nameOrAddress) const = 0;
  [[nodiscard]] virtual JobScript script(std::string_view nameOrAddress, std::string_view job) const = 0;
  /// The names of all computers, in order.
  [[nodiscard]] virtual std::vector<std::string> names() const = 0;
};

}  // namespace varnhold::companion
