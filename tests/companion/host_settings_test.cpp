#include "companion/lab/host_settings.h"
#include "tests/fakes/lines_are.h"

#include <gmock/gmock.h>

namespace varnhold::companion {
namespace {

using testing::Contains;
using testing::IsEmpty;

constexpr const char* kFull = R"([host]
address = 10.1.1.11          ; absent: the name does not resolve
type = 7                     ; System_Type
os_major = 6
domain = CORP
description = File server
answers = no
program_files = D:\Programs
drives = C D E
security_log = no
[account]
user = CORP\admin
password = secret;word
[result]
install = 180
configuration_file = 0
[no_thread]
uninstall = yes
[delay_ms]
discovery = 250
install = 500
uninstall = never
[refuse]
service = yes
start = 1069
copy = no
)";

TEST(HostSettings, KnowsTheStepsAndJobsOfEveryKindOfJob) {
  for (const std::string step :
       {"local_registry", "owner", "mode", "desktop", "agent_library", "resolve", "agent", "confirm",
        "security_log", "poll", "unpoll", "snapshots", "remove_snapshots", "logon_right"}) {
    const HostSettings settings = readHostSettings("[refuse]\n" + step + " = yes\n", "WKS01");
    EXPECT_EQ(settings.refusals.at(step), kAccessDenied) << step;
    EXPECT_THAT(settings.problems, IsEmpty()) << step;
  }
  const HostSettings settings = readHostSettings("[result]\nversion_check = 3027\n", "WKS01");
  EXPECT_EQ(settings.scripts.at("version_check").result, 3027);
  EXPECT_THAT(settings.problems, IsEmpty());
}

TEST(HostSettings, ReadsEveryKey) {
  const HostSettings settings = readHostSettings(kFull, "WKS01");
  EXPECT_EQ(settings.facts.name, "WKS01");
  EXPECT_EQ(settings.facts.address, "10.1.1.11");
  EXPECT_EQ(settings.facts.systemType, 7);
  EXPECT_EQ(settings.facts.osMajor, 6);
  EXPECT_EQ(settings.facts.domain, "CORP");
  EXPECT_EQ(settings.facts.description, "File server");
  EXPECT_EQ(settings.facts.programFiles, "D:\\Programs");
  EXPECT_EQ(settings.drives, "CDE");
  EXPECT_FALSE(settings.answers);
  EXPECT_FALSE(settings.securityLog);
  EXPECT_EQ(settings.account, "CORP\\admin");
  EXPECT_EQ(settings.password, "secret;word");
  EXPECT_EQ(settings.scripts.at("install").result, 180);
  EXPECT_EQ(settings.scripts.at("configuration_file").result, 0);
  EXPECT_TRUE(settings.scripts.at("uninstall").noThread);
  EXPECT_FALSE(settings.scripts.at("install").noThread);
  EXPECT_EQ(settings.scripts.at("install").delay, std::chrono::milliseconds(500));
  EXPECT_EQ(settings.scripts.at("discovery").delay, std::chrono::milliseconds(250));
  EXPECT_TRUE(settings.scripts.at("uninstall").neverEnds);
  EXPECT_EQ(settings.refusals.at("service"), kAccessDenied);
  EXPECT_EQ(settings.refusals.at("start"), kLogonFailed);
  EXPECT_EQ(settings.refusals.at("copy"), kDone);
  EXPECT_THAT(settings.problems, IsEmpty());
}

TEST(HostSettings, OfAnEmptyFileAreAComputerThatAnswersButDoesNotResolve) {
  const HostSettings settings = readHostSettings("", "WKS01");
  EXPECT_EQ(settings.facts.address, "");
  EXPECT_TRUE(settings.answers);
  EXPECT_TRUE(settings.securityLog);
  EXPECT_EQ(settings.facts.systemType, 10);
  EXPECT_EQ(settings.facts.osMajor, 5);
  EXPECT_EQ(settings.facts.programFiles, "C:\\Program Files");
  EXPECT_EQ(settings.drives, "CD");
}

TEST(HostSettings, SayWhichValueCannotBeUsed) {
  const HostSettings settings = readHostSettings(
      "[host]\naddress=10.1.1\ntype=seven\nprogram_files=Programs\nanswers=perhaps\ndrives=C:\n"
      "[delay_ms]\ninstall=-1\n[result]\ninstall=99999999999\n[refuse]\ncopy=5x\n[no_thread]\ninstall="
      "maybe\n",
      "WKS01");
  EXPECT_THAT(settings.problems,
              LinesAre({"[host] address: is no dotted address, so the name does not resolve",
                        "[host] type: is no whole number; taken as 10",
                        "[host] program_files: is no full path; taken as C:\\Program Files",
                        "[host] drives: is no list of drive letters; taken as CD",
                        "[host] answers: is neither yes nor no; taken as yes",
                        "[result] install: is no whole number; the job goes by itself",
                        "[no_thread] install: is neither yes nor no; taken as no",
                        "[delay_ms] install: is neither a number of milliseconds nor never; taken as 0",
                        "[refuse] copy: is neither yes, no nor a Win32 error number; taken as no"}));
  EXPECT_EQ(settings.facts.address, "");
  EXPECT_EQ(settings.facts.systemType, 10);
  EXPECT_EQ(settings.scripts.at("install").delay, std::nullopt);
}

TEST(HostSettings, SayWhichNameIsNotKnown) {
  const HostSettings settings =
      readHostSettings("[host]\nadress=10.1.1.1\n[results]\n[refuse]\nservices=yes\n", "WKS01");
  EXPECT_THAT(settings.problems, LinesAre({"[host] adress: no such key", "[results]: no such section",
                                           "[refuse] services: no such key"}));
}

TEST(HostSettings, TakeAnyBytes) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const HostSettings settings = readHostSettings(bytes + "\n[host]\naddress=10.1.1.2\n", "WKS01");
  EXPECT_EQ(settings.facts.address, "10.1.1.2");
  EXPECT_FALSE(settings.problems.empty());
}

TEST(HostSettings, RefuseAnAddressThatIsNone) {
  for (const std::string address : {"256.1.1.1", "1.1.1.1.1", "1..1.1", "a.b.c.d", "0001.1.1.1", "-1.1.1.1"})
    EXPECT_THAT(readHostSettings("[host]\naddress=" + address + "\n", "X").problems, Contains(testing::_))
        << address;
}

}  // namespace
}  // namespace varnhold::companion
