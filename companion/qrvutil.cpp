#include "companion/include/qrvutil.h"

#include "companion/abi.h"
#include "companion/host_view.h"
#include "companion/inventory.h"
#include "companion/lab/lab_network.h"
#include "companion/local_calls.h"
#include "companion/paths.h"
#include "companion/surroundings.h"
#include "companion/systems.h"

// The functions of the C ABI about the computers and the manager's own files.
static_assert(sizeof(void*) != 4 || sizeof(QrvSystemDetails) == 36);

namespace varnhold::companion {
namespace {

constexpr std::size_t kLongestName = kQrvSystemNameSize - 1;

LabNetwork lab() {
  return LabNetwork(readSurroundings().labFolder);
}

/// The longest part of the text that fits a buffer, cut between letters.
std::string fitting(std::string text, std::size_t bufferSize) {
  while (host::toAbi(text).size() >= bufferSize) {
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80) text.pop_back();
    if (!text.empty()) text.pop_back();
  }
  return text;
}

bool fillDetails(QrvSystemDetails& details, const SystemFacts& facts) {
  if (details.ResolvedName == nullptr || details.DetailsText1 == nullptr || details.DetailsText2 == nullptr)
    return false;
  details.OSMajorVersion = facts.osMajor;
  details.SystemType = facts.systemType;
  return abi::write(details.ResolvedName, kQrvResolvedNameSize,
                    fitting(facts.resolvedName, kQrvResolvedNameSize)) &&
         abi::write(details.DetailsText1, kQrvText1Size, fitting(facts.description, kQrvText1Size)) &&
         abi::write(details.DetailsText2, kQrvText2Size, fitting(facts.address, kQrvText2Size));
}

}  // namespace
}  // namespace varnhold::companion

using namespace varnhold::companion;

int32_t QRV_CALL qrvCCreateConfigurationFile(char* libraryPath, char* systemName, char* installDirectory,
                                             int32_t agentMode) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    const auto library = abi::text(libraryPath);
    const auto name = abi::text(systemName, kLongestName);
    const auto directory = abi::text(installDirectory);
    if (!library || !name || !directory) return 0;
    const Surroundings surroundings = readSurroundings();
    const auto scripted = LabNetwork(surroundings.labFolder).script(*name, "configuration_file").result;
    if (scripted.value_or(1) != 1) return *scripted;
    return writeSetupInformation(host::localPath(*library),
                                 {*name, *directory, surroundings.managerName, agentMode})
               ? 1
               : 0;
  });
}

int32_t QRV_CALL qrvCReadNWriteVhaConfigINI4Turbo(char* agentLibraryPath, char* agentFolder, char* iniPath,
                                                  int32_t mode) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    const auto library = abi::text(agentLibraryPath);
    const auto folder = abi::text(agentFolder);
    const auto ini = abi::text(iniPath);
    if (!library || !folder || !ini) return 0;
    const Surroundings surroundings = readSurroundings();
    // No computer is named in this call: what it is to give stands with the manager's own.
    const auto scripted = LabNetwork(surroundings.labFolder).script(surroundings.managerName, "ini").result;
    if (scripted == 0) return 0;
    const bool edited = editAgentConfiguration(host::localPath(*library), host::localPath(*folder),
                                               host::localPath(*ini), mode);
    return edited ? scripted.value_or(1) : 0;
  });
}

int32_t QRV_CALL qrvGetSystemIPAddress(char* systemName, char* address) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    const auto name = abi::text(systemName, kLongestName);
    if (!name || address == nullptr) return 0;
    const auto resolved = resolveAddress(lab(), *name);
    if (!resolved || !abi::write(address, kQrvAddressSize, resolved->address)) return 0;
    return resolved->name == *name || abi::write(systemName, kQrvSystemNameSize, resolved->name) ? 1 : 0;
  });
}

int32_t QRV_CALL qrvFindSystemAndReturnDetails(QrvSystemDetails* details) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    if (details == nullptr) return 0;
    const auto name = abi::text(details->SystemName, kLongestName);
    if (!name) return 0;
    const auto facts = findSystem(lab(), *name);
    return facts && fillDetails(*details, *facts) ? 1 : 0;
  });
}

int32_t QRV_CALL qrvUpdateSystemDetailsInDB(QrvSystemDetails* details) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    if (details == nullptr) return 0;
    const auto name = abi::text(details->SystemName, kLongestName);
    const auto description = abi::text(details->DetailsText1, kQrvText1Size - 1);
    const auto address = abi::text(details->DetailsText2, kQrvText2Size - 1);
    if (!name || name->empty() || !description || !address) return 0;
    const SystemRow system{*name, details->SystemType, *address, *description};
    ownInventory().use([&](varnhold::store::Connection& connection) { storeSystem(connection, system); });
    return 1;
  });
}

void QRV_CALL qrvNetOpGetSystem(char* systemName) {
  static_cast<void>(abi::guarded<bool>(false, [&] {
    const auto name = abi::text(systemName, kLongestName);
    if (!name) return false;
    const auto facts = findSystem(lab(), *name);
    if (!facts) return false;
    const SystemRow system{plainComputerName(*name), facts->systemType, facts->address, facts->description};
    ownInventory().use([&](varnhold::store::Connection& connection) { storeSystem(connection, system); });
    return true;
  }));
}

int32_t QRV_CALL qrvRestartService(char* computer, char* service) {
  return abi::guarded<std::int32_t>(0, [&]() -> std::int32_t {
    const auto name = abi::text(computer, kLongestName);
    const auto serviceName = abi::text(service);
    return name && serviceName && restartService(lab(), *name, *serviceName) == kDone ? 1 : 0;
  });
}

int16_t QRV_CALL qrvChkRmtRegNGetPrgFilePath(char* computer, char* path) {
  return abi::guarded<std::int16_t>(0, [&]() -> std::int16_t {
    const auto name = abi::text(computer, kLongestName);
    if (!name) return 0;
    const auto folder = programFilesFolder(lab(), *name);
    return folder && abi::write(path, kQrvFolderSize, *folder) ? 1 : 0;
  });
}
