#include "tools/provision/lab.h"

#include <algorithm>

#include "base/text.h"
#include "tools/provision/home.h"
#include "tools/provision/home_files.h"

namespace varnhold::provision {
namespace {

/// What a role adds to `host.ini`, and what becomes of an install there.
struct RoleText {
  LabRole role;
  std::string_view comment, hostLines, sections;
};

constexpr std::array<RoleText, 6> kRoles{{
    {LabRole::Deploys, "takes an agent", "", ""},
    {LabRole::DoesNotResolve, "has a name that leads to no address", "", ""},
    {LabRole::DoesNotAnswer, "is known by name but switched off", "answers = no\n", ""},
    {LabRole::RefusesService, "does not let a service be created", "", "\n[refuse]\nservice = yes\n"},
    {LabRole::Warns, "takes an agent whose service does not start by itself", "",
     "\n[result]\ninstall = 232\n"},
    {LabRole::IsSlow, "takes its time", "", "\n[delay_ms]\ninstall = 1500\nuninstall = 1500\n"},
}};

constexpr LabModel kManagerModel{{}, 14, 5, "CORP", R"(C:\Program Files)", LabRole::Deploys, {}, {}};
constexpr int kManagerNumber = 10;  ///< its address stands before the lab's first
constexpr int kFirstNumber = 11;
constexpr int kComputersPerSubnet = 200;

std::string addressOf(int number) {
  const int subnet = 1 + (number - kFirstNumber) / kComputersPerSubnet;
  const int host =
      number < kFirstNumber ? number : kFirstNumber + (number - kFirstNumber) % kComputersPerSubnet;
  return "10.1." + std::to_string(subnet) + "." + std::to_string(host);
}

std::string nameOf(const LabModel& model, int round, std::string_view managerName) {
  auto name = std::string(model.name);
  if (round > 0) name += "-" + std::to_string(round + 1);
  return equalsIgnoringCase(name, managerName) ? name + "-0" : name;
}

std::string accountSection(const LabModel& model) {
  if (model.account.empty()) return {};
  return "\n[account]\nuser = " + std::string(model.account) + "\npassword = " + std::string(model.password) +
         "\n";
}

/// The service of the manager's own agent, as it stands on a computer.
constexpr std::string_view kManagerServices = R"([Varnhold Agent]
path = C:\Program Files\Kelmont Works\Varnhold\Agent\vhagent.exe
account = LocalSystem
start = automatic
description = Collects the events of this computer
security = configured
state = running
)";

/// `C:\Program Files` as a folder of the lab: `C/Program Files`.
std::filesystem::path onDrive(std::string_view folder) {
  const auto path = replaceAll(folder.substr(3), "\\", "/");
  return pathFromUtf8(std::string(folder.substr(0, 1))) / pathFromUtf8(path);
}

void makeComputer(const std::filesystem::path& lab, const LabComputer& computer) {
  const auto folder = lab / pathFromUtf8(computer.name);
  makeFolder(folder / onDrive(R"(C:\WINDOWS)"));
  makeFolder(folder / onDrive(computer.model.programFiles));
  writeWhole(folder / "host.ini", hostIni(computer));
}

}  // namespace

std::vector<LabComputer> labComputers(int count, std::string_view managerName) {
  std::vector<LabComputer> computers;
  const int models = static_cast<int>(kLabMixture.size());
  for (int i = 0; i < count; ++i) {
    const auto& model = kLabMixture[static_cast<std::size_t>(i % models)];
    computers.push_back({nameOf(model, i / models, managerName), addressOf(kFirstNumber + i), model});
  }
  return computers;
}

std::string hostIni(const LabComputer& computer) {
  const auto& model = computer.model;
  const auto& role =
      *std::find_if(kRoles.begin(), kRoles.end(), [&](const RoleText& r) { return r.role == model.role; });
  std::string text = "; " + computer.name + ": " + std::string(role.comment) +
                     (model.account.empty() ? "" : " from whoever brings its account") + "\n[host]\n";
  if (model.role != LabRole::DoesNotResolve) text += "address = " + computer.address + "\n";
  text += "type = " + std::to_string(model.systemType) + "\n";
  text += "os_major = " + std::to_string(model.osMajor) + "\n";
  text += "domain = " + std::string(model.domain) + "\n";
  text += "program_files = " + std::string(model.programFiles) + "\n";
  return text + std::string(role.hostLines) + accountSection(model) + std::string(role.sections);
}

void makeLab(const std::filesystem::path& home, const std::vector<LabComputer>& computers,
             const std::string& managerName) {
  const auto lab = home / kLabFolder;
  makeComputer(lab, {managerName, addressOf(kManagerNumber), kManagerModel});
  writeWhole(lab / pathFromUtf8(managerName) / "services.ini", kManagerServices);
  for (const auto& computer : computers) makeComputer(lab, computer);
}

std::string accountList() {
  std::string list;
  for (const auto& account : kLabAccounts)
    list.append(account.domain)
        .append(":")
        .append(account.user)
        .append(":")
        .append(account.password)
        .append("\n");
  return list;
}

std::string systemList(const std::vector<LabComputer>& computers) {
  std::string list;
  for (const auto& computer : computers) list += computer.name + "\n";
  return list;
}

}  // namespace varnhold::provision
