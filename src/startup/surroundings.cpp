#include "startup/surroundings.h"

#include "base/text.h"
#include "core/mdCommon.h"
#include "store/data_source.h"

namespace varnhold::startup {

bool readMachineValue(core::Program& program, const char* key, const char* name, std::string& value) {
  return core::RegReadValue(program.host.registry, platform::RegistryHive::LocalMachine, key, name, value);
}

void openInventory(core::Program& program) {
  program.gConn.Open(std::string(store::kDataSourceName), "", "", -1);
}

bool readInstallPath(core::Program& program) {
  std::string installPath;
  if (!readMachineValue(program, core::kManagerKey, "INSTALLPATH", installPath)) return false;
  program.gEventsConsole = "\"" + installPath + "\\VHConsole.exe\"";
  program.gInstallerDir = installPath + "\\RemoteInstaller";
  return true;
}

void readLocalName(core::Program& program) {
  const auto filled = program.host.environment.getComputerName();
  program.gLocalName = filled ? TrimAtNull(*filled) : "LocalHost";
}

}  // namespace varnhold::startup
