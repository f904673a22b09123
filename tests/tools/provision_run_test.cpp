// Whole runs of varnhold-provision, checked file by file, value by value and row by row.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "core/registry_values.h"
#include "tests/fakes/lines_are.h"
#include "tests/tools/provisioned_home.h"
#include "tools/provision/lab.h"

namespace varnhold::provision {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;
using ProvisionRun = ProvisionTest;

TEST_F(ProvisionRun, MakesTheHomeFileByFile) {
  const auto home = folder / "home";
  const auto ended = runProvision({"--home", home.string()});
  ASSERT_EQ(ended.status, 0) << ended.err;
  EXPECT_EQ(ended.err, "");
  EXPECT_THAT(ended.out, HasSubstr("Home:      " + home.string() + "\n"));
  EXPECT_THAT(namesIn(home), IsSupersetOf({"Agent", "RemoteInstaller", "lab", "odbc.ini", "qrvdbv3.mdb",
                                           "registry.reg", "systems.txt"}));
  EXPECT_THAT(namesIn(home), Not(Contains("provisioning.mark")));
  EXPECT_THAT(namesIn(home / "RemoteInstaller"), LinesAre({"Agent", "remins"}));
  EXPECT_THAT(namesIn(home / "RemoteInstaller/remins"), LinesAre({"readme.txt", "vhremote.ini"}));
  EXPECT_THAT(namesIn(home / "RemoteInstaller/Agent"),
              LinesAre({"vhaconfig.ini", "vhagent", "vhagent.exe", "vhagent.txt"}));
  EXPECT_THAT(namesIn(home / "Agent"), LinesAre({"vhaconfig.ini", "vhagent", "vhagent.exe", "vhagent.txt"}));
  EXPECT_THAT(contentOf(home / "RemoteInstaller/Agent/vhaconfig.ini"),
              HasSubstr("[Performance]\nHighPerformance = 0\n"));
}

TEST_F(ProvisionRun, WritesTheRegistryValueByValue) {
  const auto home = folder / "home";
  ASSERT_EQ(runProvision({"--home", home.string()}).status, 0);
  EXPECT_EQ(registryValue(home, core::kQuorvaneKey, "DBPath"), "text:" + home.string());
  EXPECT_EQ(registryValue(home, core::kQuorvaneKey, "MaxDBSize"), "number:244:1:0:0");
  EXPECT_EQ(registryValue(home, core::kManagerKey, "INSTALLPATH"), "text:" + home.string());
  EXPECT_EQ(registryValue(home, core::kManagerKey, "VHVersion"), "text:7.0");
  EXPECT_EQ(registryValue(home, core::kManagerKey, "MpDbResend"), "number:0:0:0:0");
  EXPECT_EQ(registryValue(home, core::kAgentKey, "InstallPath"), "text:" + home.string() + "\\Agent");
  EXPECT_EQ(registryValue(home, core::kAgentKey, "gPollingFreq"), "text:1:0");
  EXPECT_EQ(registryValue(home, core::kAgentKey, "gPollStartTime"), "text:0:0");
  EXPECT_EQ(registryValue(home, core::kDataSourcesKey, "qrvdb"), "text:SQLite3");
  EXPECT_EQ(registryValue(home, core::kManagerKey, "SWINSTALLPATH"), "missing");
  EXPECT_EQ(registryValue(home, core::kWindowsChangesKey, "LocalRootDir"), "missing");
}

TEST_F(ProvisionRun, WritesTheAccountsOfTheLabForTheirOwnerAlone) {
  const auto home = folder / "home";
  const auto mask = ::umask(0);
  const auto ended = runProvision({"--home", home.string()});
  ::umask(mask);
  ASSERT_EQ(ended.status, 0) << ended.err;
  EXPECT_EQ(contentOf(home / "ntlm-users"), accountList());
  EXPECT_EQ(fs::status(home / "ntlm-users").permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_THAT(namesIn(home), Not(Contains("ntlm-users.new")));
}

TEST_F(ProvisionRun, MakesTheTablesEmpty) {
  const auto home = folder / "home";
  ASSERT_EQ(runProvision({"--home", home.string()}).status, 0);
  store::Connection inventory;
  openDatabase(inventory, home / "qrvdbv3.mdb");
  for (const auto& table : kTables)
    EXPECT_THAT(rowsOf(inventory, "SELECT COUNT(*) AS n FROM " + table, {"n"}), LinesAre({"0"})) << table;
}

TEST_F(ProvisionRun, MakesALabOfTwelveAndTheManagersOwnComputer) {
  const auto home = folder / "home";
  ASSERT_EQ(runProvision({"--home", home.string()}).status, 0);
  EXPECT_EQ(namesIn(home / "lab").size(), 13u);
  for (const auto& computer : labComputers(12, managerName())) {
    EXPECT_EQ(contentOf(home / "lab" / computer.name / "host.ini"), hostIni(computer));
    EXPECT_THAT(contentOf(home / "systems.txt"), HasSubstr(computer.name + "\n"));
  }
  EXPECT_TRUE(fs::is_directory(home / "lab/ATLAS/C/Program Files"));
  EXPECT_TRUE(fs::is_directory(home / "lab/DELTA/D/Program Files"));
  EXPECT_THAT(contentOf(home / "lab" / managerName() / "host.ini"), HasSubstr("address = 10.1.1.10\n"));
  EXPECT_THAT(contentOf(home / "lab" / managerName() / "services.ini"),
              testing::AllOf(StartsWith("[Varnhold Agent]\n"), HasSubstr("state = running\n")));
  EXPECT_THAT(contentOf(home / "systems.txt"), Not(HasSubstr(managerName())));
}

TEST_F(ProvisionRun, ALabOfNoneStillHoldsTheManagersOwnComputer) {
  const auto home = folder / "home";
  ASSERT_EQ(runProvision({"--home", home.string(), "--lab", "0"}).status, 0);
  EXPECT_THAT(namesIn(home / "lab"), LinesAre({managerName()}));
  EXPECT_TRUE(fs::exists(home / "systems.txt"));
}

TEST_F(ProvisionRun, TakesTheDefaultHomeFromTheEnvironment) {
  const auto home = folder / "by variable";
  ASSERT_EQ(runProvision({}, {"VARNHOLD_HOME=" + home.string()}).status, 0);
  EXPECT_EQ(registryValue(home, core::kManagerKey, "INSTALLPATH"), "text:" + home.string());
  ASSERT_EQ(runProvision({}, {"XDG_DATA_HOME=" + (folder / "data").string()}).status, 0);
  EXPECT_TRUE(fs::exists(folder / "data/varnhold/registry.reg"));
}

struct PathCase {
  std::string asked, home;
};

TEST_F(ProvisionRun, AnyFolderCanBeAHome) {
  const std::vector<PathCase> cases = {
      {"relative", "relative"},
      {"./dotted/../also", "also"},
      {"missing/parents/home", "missing/parents/home"},
      {"trailing//", "trailing"},
      {"with blanks in it", "with blanks in it"},
      {" at its ends ", " at its ends "},
      {"Größe äöü 中文", "Größe äöü 中文"},
      {"it's; #1 = [100%] {x} \"q\"", "it's; #1 = [100%] {x} \"q\""},
      {"--home-like", "--home-like"},
  };
  for (const auto& path : cases) {
    const auto ended = runProvision({"--home=" + path.asked}, {}, folder);
    ASSERT_EQ(ended.status, 0) << path.asked << ": " << ended.err;
    const auto home = folder / path.home;
    EXPECT_EQ(registryValue(home, core::kManagerKey, "INSTALLPATH"), "text:" + home.string());
    EXPECT_GT(fs::file_size(home / "qrvdbv3.mdb"), 0u) << path.asked;
  }
}

TEST_F(ProvisionRun, HelpGoesToStandardOutput) {
  const auto ended = runProvision({"--help"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_THAT(ended.out, StartsWith("Usage: varnhold-provision"));
  EXPECT_EQ(ended.err, "");
}

TEST_F(ProvisionRun, ADataSourceThatIsThereIsKeptAndGetsTheTables) {
  const auto home = folder / "home";
  const auto ini = "; mine\n" + iniFor(folder / "elsewhere.db");
  writeFile(home / "odbc.ini", ini);
  const auto ended = runProvision({"--home", home.string()});
  ASSERT_EQ(ended.status, 0) << ended.err;
  EXPECT_EQ(contentOf(home / "odbc.ini"), ini);
  EXPECT_FALSE(fs::exists(home / "qrvdbv3.mdb"));
  EXPECT_EQ(registryValue(home, core::kDataSourcesKey, "qrvdb"), "text:SQLite3");
  store::Connection inventory;
  openDatabase(inventory, folder / "elsewhere.db");
  EXPECT_THAT(rowsOf(inventory, "SELECT COUNT(*) AS n FROM Module_Table", {"n"}), LinesAre({"0"}));
}

TEST_F(ProvisionRun, AnOdbcIniWithOtherDataSourcesIsAddedTo) {
  const auto home = folder / "home";
  writeFile(home / "odbc.ini", "[other]\nDriver = SQLite3");
  ASSERT_EQ(runProvision({"--home", home.string()}).status, 0);
  EXPECT_THAT(contentOf(home / "odbc.ini"), StartsWith("[other]\nDriver = SQLite3\n"));
  EXPECT_THAT(contentOf(home / "odbc.ini"), HasSubstr("\n[qrvdb]\n"));
}

TEST_F(ProvisionRun, TheFileThatODBCININamesIsUsed) {
  const auto home = folder / "home";
  writeFile(folder / "my.ini", iniFor(folder / "mine.db"));
  const auto ended = runProvision({"--home", home.string()}, {"ODBCINI=" + (folder / "my.ini").string()});
  ASSERT_EQ(ended.status, 0) << ended.err;
  EXPECT_FALSE(fs::exists(home / "odbc.ini"));
  EXPECT_GT(fs::file_size(folder / "mine.db"), 0u);
}

TEST_F(ProvisionRun, FillsTheInventoryWithComputersAgentsAndGroups) {
  const auto home = folder / "home";
  const auto ended = runProvision({"--home", home.string(), "--computers", "1000", "--lab", "1"});
  ASSERT_EQ(ended.status, 0) << ended.err;
  EXPECT_THAT(ended.out, HasSubstr("1000 computers"));
  store::Connection inventory;
  openDatabase(inventory, home / "qrvdbv3.mdb");
  const std::vector<std::string> counts = {"1000", "1000", "10", "10", "803"};
  for (std::size_t i = 0; i < kTables.size(); ++i)
    EXPECT_THAT(rowsOf(inventory, "SELECT COUNT(*) AS n FROM " + kTables[i], {"n"}), ElementsAre(counts[i]))
        << kTables[i];
  EXPECT_THAT(rowsOf(inventory, "SELECT * FROM System_Table WHERE System_Name = 'PC000050'",
                     {"System_Name", "System_Type", "IP_Address", "System_Description"}),
              LinesAre({"PC000050|7||Room 150"}));
  EXPECT_THAT(rowsOf(inventory, "SELECT * FROM Module_Table WHERE System_Name = 'PC000003'",
                     {"Module_ID", "Install_Directory", "Manual", "Agentless", "Port", "SystemType"}),
              LinesAre({"1|C:\\Program Files\\Kelmont Works\\Varnhold|0|1|-|0"}));
  EXPECT_THAT(rowsOf(inventory, "SELECT * FROM System_Group_Detail WHERE Group_Name = 'Servers 0003'",
                     {"Group_Name", "OS_Type", "IP_Subnet", "Domain"}),
              LinesAre({"Servers 0003|5||"}));
  EXPECT_THAT(rowsOf(inventory, "SELECT * FROM System_Group_Master WHERE Group_Name = 'DOMAIN0002'",
                     {"Group_Name", "Description", "Auto"}),
              LinesAre({"DOMAIN0002|Computers of one domain|0"}));
}

TEST_F(ProvisionRun, TheSameNumberOfComputersGivesTheSameInventory) {
  std::vector<std::vector<std::string>> inventories;
  for (const std::string name : {"a", "b"}) {
    ASSERT_EQ(runProvision({"--home", (folder / name).string(), "--computers", "1000"}).status, 0);
    store::Connection inventory;
    openDatabase(inventory, folder / name / "qrvdbv3.mdb");
    inventories.push_back(rowsOf(inventory,
                                 "SELECT System_Table.System_Name AS a, System_Type AS b, IP_Address AS c, "
                                 "Module_ID AS d, Port AS e FROM System_Table, Module_Table WHERE "
                                 "System_Table.System_Name = Module_Table.System_Name ORDER BY 1, 4",
                                 {"a", "b", "c", "d", "e"}));
  }
  EXPECT_EQ(inventories[0].size(), 1000u);
  EXPECT_EQ(inventories[0], inventories[1]);
}

}  // namespace
}  // namespace varnhold::provision
