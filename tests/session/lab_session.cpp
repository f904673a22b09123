#include "tests/session/lab_session.h"

#include <fstream>
#include <iterator>

#include "base/text.h"
#include "core/registry_values.h"
#include "tests/cli/process.h"
#include "tools/provision/lab.h"

namespace varnhold::session {
namespace {

namespace fs = std::filesystem;

bool isLock(const fs::path& file) {
  return file.extension() == ".lock";
}

}  // namespace

std::string readFile(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

LabSession::LabSession() {
  stage.putCompanion();
  const char* const logonControl = "libVhwLogonCtrl.so";
  fs::copy_file(cli::Stage::companionLibrary().parent_path() / logonControl, stage.home() / logonControl);
  for (const auto& computer : provision::labComputers(12, managerName()))
    cli::Stage::execute("INSERT INTO System_Table VALUES ('" + computer.name + "', " +
                        std::to_string(computer.model.systemType) + ", '" + computer.address + "', '')");
  const std::map<std::string, Lines> groups = {{"Desks", {"ATLAS", "BIRCH"}}, {"Servers", {"EMBER"}}};
  for (const auto& [group, members] : groups) {
    cli::Stage::execute("INSERT INTO System_Group_Master VALUES ('" + group + "', 'of the session', 1)");
    cli::Stage::execute("INSERT INTO System_Group_Detail VALUES ('" + group + "', 0, '', '')");
    for (const auto& member : members)
      cli::Stage::execute("INSERT INTO System_Group VALUES ('" + member + "', '" + group + "')");
  }
  const auto host = platform::makeHostAdapters({0, nullptr, stage.home().string()});
  EXPECT_NE(host->libraries().qrvSetNetAccessMode(0), 0);
}

std::string LabSession::managerName() const {
  return cli::computerName();
}

Content LabSession::lab(const std::string& name) const {
  Content content;
  const auto folder = stage.home() / "lab" / name;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (isLock(entry.path())) continue;
    content[entry.path().lexically_relative(folder).string()] =
        entry.is_directory() ? std::string("<folder>") : readFile(entry.path());
  }
  return content;
}

std::map<std::string, Content> LabSession::labs() const {
  std::map<std::string, Content> all;
  for (const char* const name : kLabNames) all[name] = lab(name);
  return all;
}

std::string LabSession::labFile(const std::string& name, const std::string& path) const {
  return readFile(stage.home() / "lab" / name / path);
}

std::string LabSession::agentService(const std::string& name, const std::string& key) const {
  const auto text = replaceAll(labFile(name, "services.ini"), "\r", "");
  const auto section = text.find("[Varnhold Agent]");
  if (section == std::string::npos) return {};
  for (const auto& line : split(text.substr(section), '\n')) {
    const auto equals = line.find('=');
    if (equals != std::string::npos && trimBlanks(line.substr(0, equals)) == key)
      return trimBlanks(line.substr(equals + 1));
  }
  return {};
}

void LabSession::rehearse(const std::string& name, const std::string& lines) {
  const auto path = "lab/" + name + "/host.ini";
  stage.writeFile(path, readFile(stage.home() / path) + "\n" + lines);
}

Lines LabSession::log() const {
  Lines records;
  for (const auto& line : split(readFile(stage.home() / "RemoteInstaller" / "AILog.txt"), '\n')) {
    if (line.empty()) continue;
    EXPECT_TRUE(line.starts_with('"') && line.ends_with("\"\r")) << line;
    records.push_back(line.substr(1, line.size() - 3));
  }
  return records;
}

void LabSession::setRegistry(OperatorsConsole& console, const char* key, const char* name,
                             const std::string& text) {
  auto& registry = console.adapters->registry();
  constexpr auto kMachine = platform::RegistryHive::LocalMachine;
  EXPECT_EQ(registry.createKey(kMachine, key), platform::RegistryOutcome::Done);
  EXPECT_EQ(registry.set(kMachine, key, name, {platform::kRegText, text + '\0'}),
            platform::RegistryOutcome::Done);
}

std::string LabSession::registryText(OperatorsConsole& console, const char* key, const char* name) {
  platform::RegistryValue value;
  EXPECT_EQ(console.adapters->registry().query(platform::RegistryHive::LocalMachine, key, name, 1024, value),
            platform::RegistryOutcome::Done);
  return TrimAtNull(value.bytes);
}

void LabSession::addAgentRow(const std::string& name, int module, int agentless) {
  cli::Stage::execute(
      "INSERT INTO Module_Table (System_Name, Module_ID, Install_Directory, Manual, Agentless) VALUES ('" +
      name + "', " + std::to_string(module) + ", '', 0, " + std::to_string(agentless) + ")");
}

Lines eachWith(const Lines& names, const std::string& text) {
  Lines lines;
  for (const auto& name : names) lines.push_back(name + ": " + text);
  return lines;
}

}  // namespace varnhold::session
