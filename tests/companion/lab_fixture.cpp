#include "tests/companion/lab_fixture.h"

#include <fstream>
#include <functional>
#include <random>
#include <sstream>

#include "base/text.h"
#include "companion/ini_text.h"
#include "companion/paths.h"
#include "platform/formats/registry_file.h"

namespace varnhold::companion::test {
namespace {

namespace fs = std::filesystem;

std::string servicesText(const std::string& bytes) {
  std::map<std::string, std::string> entries;
  const IniText ini(bytes);
  for (const std::string& section : ini.sections())
    for (const std::string& key : ini.keys(section)) entries[section + "/" + key] = *ini.value(section, key);
  std::string text;
  for (const auto& [name, value] : entries) text += name + "=" + value + "\n";
  return text;
}

std::string registryText(const std::string& bytes) {
  platform::RegistryFileError error;
  const auto file = platform::RegistryFile::parse(bytes, error);
  if (!file) return "damaged: " + error.what;
  std::map<std::string, std::string> entries;
  const std::function<void(const std::string&)> add = [&](const std::string& key) {
    entries[key] = "";
    for (const std::string& name : file->valueNames(key))
      entries[key + " : " + name] = file->find(key, name)->bytes;
    for (const std::string& name : file->subkeys(key)) add(key + "\\" + name);
  };
  add("HKEY_LOCAL_MACHINE");
  std::string text;
  for (const auto& [name, value] : entries) text += name + "=" + value + "\n";
  return text;
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    path_ = fs::temp_directory_path() / ("varnhold-companion-" + std::to_string(random()));
  } while (!fs::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  fs::remove_all(path_, error);
}

void writeText(const fs::path& file, std::string_view bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

std::string readText(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

std::map<std::string, std::string> snapshot(const fs::path& folder) {
  std::map<std::string, std::string> content;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = utf8FromPath(entry.path().lexically_relative(folder));
    if (entry.is_directory())
      content[name + "/"] = "";
    else if (entry.path().filename() == "services.ini")
      content[name] = servicesText(readText(entry.path()));
    else if (entry.path().extension() == ".reg")
      content[name] = registryText(readText(entry.path()));
    else if (entry.path().extension() != ".lock")
      content[name] = readText(entry.path());
  }
  return content;
}

LabFixture::LabFixture() {
  fs::create_directories(labFolder());
  writeText(agentFolder() / "vhagent", "agent library");
  writeText(agentFolder() / "vhagent.exe", "agent program");
  writeText(agentFolder() / "vhaconfig.ini", "[Performance]\r\nHighPerformance=0\r\n");
  writeText(agentFolder() / "scripts" / "restart.cmd", "rem remedial action");
  writeText(libraryFolder() / "vhsetup.ins", "[Setup]\r\nSystem=HOST\r\n");
  writeText(libraryFolder() / "setup.exe", "set-up program");
  writeText(changesFolder() / "Agent" / "TkwService.exe", "change tracker");
  writeText(changesFolder() / "remins" / "vhsetup.ins", "[Setup]\r\nSystem=TRACKED\r\n");
}

fs::path LabFixture::addHost(const std::string& name, std::string_view hostIni) {
  const fs::path folder = labFolder() / pathFromUtf8(name);
  fs::create_directories(folder);
  writeText(folder / "host.ini", hostIni);
  return folder;
}

AgentMaterial LabFixture::material(const std::string& version) const {
  return captureMaterial(libraryFolder(), kVarnholdAgent, "MANAGER", version);
}

AgentMaterial LabFixture::changesMaterial(const std::string& version) const {
  return captureMaterial(changesFolder() / "remins", kTessmarkAgent, "MANAGER", version);
}

std::int32_t LabFixture::run(JobKind kind, const JobRecord& record, const AgentMaterial& material) const {
  const LabNetwork lab = network();
  return runJob(kind, lab, lab.script(record.systemName, scriptName(kind)), record, material,
                [](std::chrono::milliseconds) {});
}

std::int32_t LabFixture::upgrade(const JobRecord& record, const std::string& version) const {
  return run(JobKind::Upgrade, record, material(version));
}

std::int32_t LabFixture::install(const JobRecord& record, const std::string& version) const {
  return run(JobKind::Install, record, material(version));
}

std::int32_t LabFixture::uninstall(const JobRecord& record) const {
  return run(JobKind::Uninstall, record, material());
}

ServiceEntry serviceOn(const LabFixture& lab, const std::string& computer, const std::string& service) {
  ServiceEntry entry;
  entry.name = "none";
  static_cast<void>(lab.network().find(computer)->services().query(service, entry));
  return entry;
}

std::string registryText(const LabFixture& lab, const std::string& computer, const std::string& key,
                         const std::string& name) {
  const auto found = lab.network().find(computer);
  for (const NamedValue& value : found->registry().values(key))
    if (value.name == name) return TrimAtNull(value.value.bytes);
  return "none";
}

JobRecord jobFor(const std::string& name) {
  JobRecord record;
  record.systemName = name;
  record.installDirectory = R"(%Program Files%\Kelmont Works\Varnhold)";
  record.agentMode = 1;
  return record;
}

fs::path agentFolderOn(const fs::path& host) {
  return host / "C" / "Program Files" / "Kelmont Works" / "Varnhold";
}

}  // namespace varnhold::companion::test
