#include "tools/provision/provision.h"

#include <memory>
#include <system_error>

#include "base/runtime_error.h"
#include "base/text.h"
#include "store/connection.h"
#include "tools/provision/account_file.h"
#include "tools/provision/home.h"
#include "tools/provision/home_files.h"
#include "tools/provision/installer_material.h"
#include "tools/provision/inventory.h"
#include "tools/provision/lab.h"
#include "tools/provision/registry_setup.h"
#include "tools/provision/work_mark.h"

namespace varnhold::provision {
namespace {

bool isThere(const std::filesystem::path& path) {
  std::error_code reason;
  return std::filesystem::exists(path, reason);
}

bool registryNames(platform::Registry& registry, const std::filesystem::path& home) {
  return equalsIgnoringCase(installedFolder(registry), utf8FromPath(home));
}

/// Where one registry serves the whole computer, another home may own it.
void refuseOtherInstallation(platform::Registry& registry, const std::filesystem::path& home) {
  const auto installed = installedFolder(registry);
  if (installed.empty() || registryNames(registry, home) || !isThere(pathFromUtf8(installed))) return;
  throw RuntimeError(kPathFileAccess,
                     "The registry of this computer belongs to the installation in '" + installed +
                         "' (value INSTALLPATH of HKEY_LOCAL_MACHINE\\SOFTWARE\\Kelmont Works\\"
                         "Varnhold\\Manager). Nothing was changed. Remove that installation first.");
}

/// Raises what is in the way in the home itself, if there is something. Changes nothing.
void refuseHome(const std::filesystem::path& home, platform::Registry& registry) {
  refuseWhatIsNoFolder(home);
  const bool unfinished = isThere(home / kWorkMarkFile) && !registryNames(registry, home);
  refuseData(home, unfinished);
}

/// While it lives, what is made counts as unfinished, and is removed in the end unless it was finished.
class Work {
 public:
  explicit Work(const std::filesystem::path& home) : home_(home), isNewFolder_(!isThere(home)) {
    makeFolder(home_);
    mark_ = WorkMark::take(home_);
  }
  ~Work() {
    if (begun_ && !finished_ && !removeUnfinished(home_)) mark_->leaveBehind();
    mark_.reset();
    std::error_code ignored;
    if (isNewFolder_ && !finished_) std::filesystem::remove(home_, ignored);
  }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

  void begin() {
    begun_ = true;
    if (!removeUnfinished(home_))
      throw RuntimeError(kPathFileAccess,
                         "Cannot remove what an unfinished run left in '" + utf8FromPath(home_) +
                             "'. Remove the folder by hand and run varnhold-provision again.");
  }
  void finish() { finished_ = true; }

 private:
  std::filesystem::path home_;
  bool isNewFolder_;
  std::unique_ptr<WorkMark> mark_;
  bool begun_ = false, finished_ = false;
};

void tell(const std::filesystem::path& home, const Options& options, const DataSource& source,
          std::ostream& out) {
  out << "Home:      " << utf8FromPath(home) << "\nInventory: data source " << kDataSource << " in "
      << source.place() << ", " << options.inventoryComputers
      << " computers\nLab:       " << options.labComputers << " computers, listed in " << kSystemListFile
      << "\n";
}

/// The embedded engine does not make its file, so that a wrong path is no empty inventory. Where the data
/// source leads elsewhere, the empty file is taken away again.
class DatabaseFile {
 public:
  explicit DatabaseFile(const std::filesystem::path& home) : file_(home / kDatabaseFile) {
    writeWhole(file_, "");
  }
  ~DatabaseFile() {
    std::error_code reason;
    if (std::filesystem::file_size(file_, reason) == 0) std::filesystem::remove(file_, reason);
  }
  DatabaseFile(const DatabaseFile&) = delete;
  DatabaseFile& operator=(const DatabaseFile&) = delete;

 private:
  std::filesystem::path file_;
};

/// Everything but the last step. The connection is closed when it returns or raises.
void make(const Options& options, const std::filesystem::path& home, const Host& host) {
  const DatabaseFile file(home);
  if (!host.dataSource.exists()) host.dataSource.create(home);
  store::Connection connection;
  openInventory(connection, host.dataSource);
  readyTables(connection, host.dataSource);
  makeInstallerMaterial(home);
  const auto computers = labComputers(options.labComputers, host.computerName);
  makeLab(home, computers, host.computerName);
  writeWhole(home / kSystemListFile, systemList(computers));
  writeAccountFile(home / kAccountFile, accountList());
  writeRegistryValues(host.registry, utf8FromPath(home), registeredDriver(connection, host.dataSource));
  if (options.inventoryComputers > 0) fillInventory(connection, options.inventoryComputers);
}

}  // namespace

void provision(const Options& options, const std::filesystem::path& home, const Host& host,
               std::ostream& out) {
  refuseHome(home, host.registry);
  {
    Work work(home);
    refuseHome(home, host.registry);  // another run may have made it meanwhile
    refuseOtherInstallation(host.registry, home);
    if (registryNames(host.registry, home)) writeInstalledFolder(host.registry, "");
    work.begin();
    make(options, home, host);
    writeInstalledFolder(host.registry, utf8FromPath(home));
    work.finish();
  }
  tell(home, options, host.dataSource, out);
}

}  // namespace varnhold::provision
