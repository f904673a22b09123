// What varnhold-provision refuses, and what it makes of a home that another run left half made.
#include <gmock/gmock.h>

#include <cstdlib>

#include "core/registry_values.h"
#include "tests/fakes/lines_are.h"
#include "tests/tools/provisioned_home.h"

namespace varnhold::provision {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using ProvisionRefusal = ProvisionTest;

TEST_F(ProvisionRefusal, ASecondRunSaysWhatItFoundAndChangesNothing) {
  const auto home = folder / "home";
  ASSERT_EQ(runProvision({"--home", home.string()}).status, 0);
  const auto before = contentsOf(home);
  const auto ended = runProvision({"--home", home.string(), "--computers", "10"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out, "");
  EXPECT_THAT(ended.err,
              StartsWith("varnhold-provision: The home '" + home.string() + "' holds data already: found '"));
  EXPECT_THAT(ended.err, HasSubstr("Nothing was changed."));
  EXPECT_EQ(contentsOf(home), before);
}

TEST_F(ProvisionRefusal, AnyNameUnderWhichAHomeKeepsDataIsReasonToRefuse) {
  for (const std::string name : {"registry.reg", "qrvdbv3.mdb", "QRVDBV3.MDB", "AILog.txt", "ailog.txt",
                                 "systems.txt", "ntlm-users", "qrvOldDB.mdb", "System Report.txt"}) {
    const auto home = folder / ("home of " + name);
    writeFile(home / name, "mine");
    const auto ended = runProvision({"--home", home.string()});
    EXPECT_EQ(ended.status, 1) << name;
    EXPECT_THAT(ended.err, HasSubstr("found '" + name + "'"));
    EXPECT_EQ(contentsOf(home), (std::map<std::string, std::string>{{name, "mine"}}));
  }
  fs::create_directories(folder / "other/lab");
  EXPECT_EQ(runProvision({"--home", (folder / "other").string()}).status, 1);
  EXPECT_THAT(namesIn(folder / "other"), LinesAre({"lab"}));
}

TEST_F(ProvisionRefusal, FilesOfOthersAndEmptyOnesAreLeftAlone) {
  const auto home = folder / "home";
  writeFile(home / "notes.txt", "mine");
  writeFile(home / "libqrvUtil.so", "a library");
  writeFile(home / "qrvdbv3.mdb", "");
  ASSERT_EQ(runProvision({"--home", home.string()}).status, 0);
  EXPECT_EQ(contentOf(home / "notes.txt"), "mine");
  EXPECT_EQ(contentOf(home / "libqrvUtil.so"), "a library");
}

struct HostileCase {
  std::string asked, words;
};

TEST_F(ProvisionRefusal, AFolderThatCannotBeAHomeIsRefusedInWords) {
  writeFile(folder / "file", "content");
  fs::create_symlink(folder / "nowhere", folder / "dangling");
  const std::vector<HostileCase> cases = {
      {"file", "is not a folder"},
      {"file/below", "Cannot make the folder"},
      {"dangling", "Cannot make the folder"},
      {"/proc/varnhold/home", "Cannot make the folder '/proc/varnhold/home'"},
      {"/proc/self", "Cannot write '/proc/"},
      {"back\\slash", "its path holds a backslash"},
      {"new\nline", "its path holds control characters"},
      {std::string(901, 'x'), "has more than 900 bytes"},
      {std::string(300, 'x'), "Cannot make the folder"},
  };
  const auto before = contentsOf(folder);
  for (const auto& hostile : cases) {
    const auto ended = runProvision({"--home", hostile.asked}, {}, folder);
    EXPECT_EQ(ended.status, 1) << hostile.asked;
    EXPECT_THAT(ended.err, StartsWith("varnhold-provision: "));
    EXPECT_THAT(ended.err, HasSubstr(hostile.words));
  }
  EXPECT_EQ(contentsOf(folder), before);
}

TEST_F(ProvisionRefusal, WrongUsageEndsWithTwoAndTouchesNothing) {
  const auto home = folder / "home";
  const auto ended = runProvision({"--home", home.string(), "--lab", "many"});
  EXPECT_EQ(ended.status, 2);
  EXPECT_THAT(ended.err, StartsWith("varnhold-provision: --lab: 'many' is not a whole number"));
  EXPECT_THAT(ended.err, HasSubstr("Usage: varnhold-provision"));
  EXPECT_FALSE(fs::exists(home));
}

TEST_F(ProvisionRefusal, WhatAKilledRunLeftIsClearedAwayAndMadeAfresh) {
  const auto home = folder / "home";
  writeFile(home / "provisioning.mark", "");
  writeFile(home / "qrvdbv3.mdb", "cut off");
  writeFile(home / "lab/OLD/host.ini", "[host]\n");
  writeFile(home / "systems.txt.new", "ATL");
  writeFile(home / "ntlm-users.new", "CORP:ad");
  const auto ended = runProvision({"--home", home.string()});
  ASSERT_EQ(ended.status, 0) << ended.err;
  EXPECT_THAT(namesIn(home),
              Not(Contains(testing::AnyOf("provisioning.mark", "systems.txt.new", "ntlm-users.new"))));
  EXPECT_FALSE(fs::exists(home / "lab/OLD"));
  EXPECT_EQ(namesIn(home / "lab").size(), 13u);
}

TEST_F(ProvisionRefusal, AFinishedHomeIsDataEvenWithTheMarkOfAKilledRun) {
  const auto home = folder / "home";
  ASSERT_EQ(runProvision({"--home", home.string()}).status, 0);
  writeFile(home / "provisioning.mark", "");
  const auto before = contentsOf(home);
  EXPECT_EQ(runProvision({"--home", home.string()}).status, 1);
  EXPECT_EQ(contentsOf(home), before);
}

TEST_F(ProvisionRefusal, AnUnfinishedHomeThatWasUsedIsData) {
  const auto home = folder / "home";
  writeFile(home / "provisioning.mark", "");
  writeFile(home / "AILog.txt", "a line\n");
  EXPECT_EQ(runProvision({"--home", home.string()}).status, 1);
  EXPECT_EQ(contentOf(home / "AILog.txt"), "a line\n");
}

TEST_F(ProvisionRefusal, AnODBCINIWithoutTheDataSourceIsNotWrittenTo) {
  const auto home = folder / "home";
  writeFile(folder / "my.ini", "[other]\n");
  const auto ended = runProvision({"--home", home.string()}, {"ODBCINI=" + (folder / "my.ini").string()});
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.err, HasSubstr("ODBCINI"));
  EXPECT_THAT(ended.err, HasSubstr((folder / "my.ini").string()));
  EXPECT_EQ(contentOf(folder / "my.ini"), "[other]\n");
  EXPECT_FALSE(fs::exists(home));
}

TEST_F(ProvisionRefusal, AnInventoryThatHoldsRowsIsNotTouched) {
  const auto first = folder / "first";
  ASSERT_EQ(runProvision({"--home", first.string(), "--computers", "5"}).status, 0);
  const auto before = contentsOf(first);
  const auto home = folder / "home";
  writeFile(home / "odbc.ini", iniFor(first / "qrvdbv3.mdb"));
  const auto ended = runProvision({"--home", home.string()});
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.err, HasSubstr("System_Table"));
  EXPECT_THAT(ended.err, HasSubstr("holds data already"));
  EXPECT_EQ(contentsOf(first), before);
  EXPECT_THAT(namesIn(home), LinesAre({"odbc.ini"}));
}

TEST_F(ProvisionRefusal, ADataSourceThatCannotBeOpenedIsToldWithWhatToDo) {
  const auto home = folder / "home";
  writeFile(home / "odbc.ini", "[qrvdb]\nDriver = no such driver\n");
  const auto ended = runProvision({"--home", home.string()});
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.err, HasSubstr("Cannot open the data source 'qrvdb'"));
  EXPECT_THAT(ended.err, HasSubstr((home / "odbc.ini").string()));
  EXPECT_THAT(namesIn(home), LinesAre({"odbc.ini"}));
}

TEST_F(ProvisionRefusal, ARunKilledAtAnyMomentLeavesWhatTheNextRunMakesWhole) {
  int killed = 0;
  for (int milliseconds = 10; milliseconds <= 310; milliseconds += 20) {
    const auto home = folder / std::to_string(milliseconds);
    const auto command = "env -u ODBCINI timeout -s KILL 0." + std::to_string(1000 + milliseconds).substr(1) +
                         " '" VARNHOLD_PROVISION "' --computers 1000 --home '" + home.string() +
                         "' >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) ++killed;
    const bool finished = registryValue(home, core::kManagerKey, "INSTALLPATH") != "missing";
    const auto ended = runProvision({"--home", home.string(), "--computers", "1000"});
    EXPECT_EQ(ended.status, finished ? 1 : 0) << milliseconds << ended.err;
    store::Connection inventory;
    openDatabase(inventory, home / "qrvdbv3.mdb");
    EXPECT_THAT(rowsOf(inventory, "SELECT COUNT(*) AS n FROM System_Table", {"n"}), LinesAre({"1000"}));
    EXPECT_EQ(namesIn(home / "lab").size(), 13u);
  }
  EXPECT_GT(killed, 0);
}

/// Runs varnhold-provision for `disk/home` on a file system of its own, mounted with `options`; standard
/// error, the exit status and what then stands in the home. Empty where no file system can be mounted.
std::string runOnDisk(const fs::path& folder, const std::string& options) {
  writeFile(folder / "run.sh",
            "cd \"$1\" && mkdir -p disk && mount -t tmpfs -o \"$3\" disk disk || exit\n"
            "\"$2\" --home disk/home 2>&1 >/dev/null; echo status $?; ls disk/home 2>/dev/null\n");
  const auto command = "env -u ODBCINI unshare -rm sh '" + (folder / "run.sh").string() + "' '" +
                       folder.string() + "' '" VARNHOLD_PROVISION "' " + options + " >'" +
                       (folder / "said").string() + "' 2>/dev/null";
  return std::system(command.c_str()) == -1 ? std::string() : contentOf(folder / "said");
}

TEST_F(ProvisionRefusal, AFullDiskIsToldAndWhatWasMadeIsRemoved) {
  const auto said = runOnDisk(folder, "size=100k");
  if (said.empty()) GTEST_SKIP() << "no file system can be mounted here";
  EXPECT_THAT(said, HasSubstr("varnhold-provision: Cannot write '"));
  EXPECT_THAT(said, HasSubstr("No space left on device.\nstatus 1\nodbc.ini\n"));
}

TEST_F(ProvisionRefusal, AReadOnlyDiskIsTold) {
  const auto said = runOnDisk(folder, "ro");
  if (said.empty()) GTEST_SKIP() << "no file system can be mounted here";
  EXPECT_THAT(said, HasSubstr("varnhold-provision: Cannot make the folder '"));
  EXPECT_THAT(said, HasSubstr("Read-only file system.\nstatus 1\n"));
}

TEST_F(ProvisionRefusal, OfTwoRunsAtATimeOneMakesTheHomeAndNoneHarmsIt) {
  const auto home = folder / "home";
  writeFile(folder / "both.sh",
            "\"$1\" --home \"$2\" --computers 2000 2>a & \"$1\" --home \"$2\" --computers 2000 2>b & "
            "wait %1; first=$?; wait %2; test $((first + $?)) = 1\n");
  const auto command = "cd '" + folder.string() +
                       "' && env -u ODBCINI bash both.sh '" VARNHOLD_PROVISION "' '" + home.string() +
                       "' >/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0) << contentOf(folder / "a") << contentOf(folder / "b");
  store::Connection inventory;
  openDatabase(inventory, home / "qrvdbv3.mdb");
  EXPECT_THAT(rowsOf(inventory, "SELECT COUNT(*) AS n FROM System_Table", {"n"}), LinesAre({"2000"}));
  EXPECT_THAT(namesIn(home), Not(Contains("provisioning.mark")));
}

}  // namespace
}  // namespace varnhold::provision
