// A whole run of varnhold-provision.exe with the real registry. The data source is one that the driver
// manager knows already (ODBCINI, for a driver manager that reads such a file), since no driver's set-up can
// be relied on here.
#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/mdCommon.h"
#include "core/registry_values.h"
#include "platform/host_adapters.h"
#include "store/connection.h"
#include "store/recordset.h"
#include "tools/provision/home_files.h"
#include "tools/provision/lab.h"

namespace varnhold::provision {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class ProvisionOnWindows : public testing::Test {
 protected:
  ProvisionOnWindows() {
    fs::remove_all(kFolder);
    fs::create_directories(kFolder);
  }
  ~ProvisionOnWindows() override {
    std::error_code ignored;
    fs::remove_all(kFolder, ignored);
  }

  struct Ended {
    int status;
    std::string out, err;
  };
  Ended run(const std::string& arguments) const {
    const auto program = adapters_->environment().programFolder() + "\\varnhold-provision.exe";
    const auto command = "\"\"" + program + "\" " + arguments + " >\"" + (kFolder / "out").string() +
                         "\" 2>\"" + (kFolder / "err").string() + "\"\"";
    const int status = std::system(command.c_str());
    return {status, contentOf(kFolder / "out"), contentOf(kFolder / "err")};
  }

  static std::string contentOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  std::string registryText(std::string_view key, std::string_view name) {
    std::string text;
    return core::RegReadValue(adapters_->registry(), platform::RegistryHive::LocalMachine, key, name, text)
               ? text
               : "missing";
  }

  static inline const fs::path kFolder = fs::temp_directory_path() / "varnhold provision test";
  std::unique_ptr<platform::HostAdapters> adapters_ = platform::makeHostAdapters({});
};

TEST_F(ProvisionOnWindows, MakesAHomeInTheRealRegistryOnceAndRefusesToDoItAgain) {
  const auto home = utf8FromPath(kFolder / "home");
  const auto ended = run("--home \"" + home + "\" --computers 250");
  ASSERT_EQ(ended.status, 0) << ended.err;
  EXPECT_EQ(registryText(core::kManagerKey, "INSTALLPATH"), home);
  EXPECT_EQ(registryText(core::kQuorvaneKey, "DBPath"), home);
  EXPECT_EQ(registryText(core::kQuorvaneKey, "MaxDBSize"), "500");
  EXPECT_EQ(registryText(core::kAgentKey, "InstallPath"), home + "\\Agent");
  EXPECT_EQ(registryText(core::kAgentKey, "gPollingFreq"), "1:0");
  EXPECT_THAT(registryText(core::kDataSourcesKey, "qrvdb"), HasSubstr("SQLite3"));
  for (const auto& computer : labComputers(12, "no such name"))
    EXPECT_EQ(contentOf(kFolder / "home/lab" / computer.name / "host.ini"), hostIni(computer));
  EXPECT_TRUE(fs::exists(kFolder / "home/RemoteInstaller/remins"));
  EXPECT_TRUE(fs::exists(kFolder / "home/RemoteInstaller/Agent/vhaconfig.ini"));
  EXPECT_FALSE(fs::exists(kFolder / "home/provisioning.mark"));

  store::Connection inventory;
  inventory.Open("qrvdb", "", "");
  store::Recordset rows;
  rows.Open("SELECT COUNT(*) AS n FROM System_Table", inventory, store::CursorType::Static,
            store::LockType::ReadOnly);
  EXPECT_EQ(rows.Fields("n").value().asInteger(), 250);
  inventory.Close();

  const auto again = run("--home \"" + home + "\"");
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("holds data already"));

  const auto other = run("--home \"" + utf8FromPath(kFolder / "other") + "\"");
  EXPECT_EQ(other.status, 1);
  EXPECT_THAT(other.err, HasSubstr("belongs to the installation in '" + home + "'"));
  EXPECT_FALSE(fs::exists(kFolder / "other"));
}

TEST_F(ProvisionOnWindows, WrongUsageEndsWithTwo) {
  const auto ended = run("--lab many");
  EXPECT_EQ(ended.status, 2);
  EXPECT_THAT(ended.err, HasSubstr("'many' is not a whole number"));
}

}  // namespace
}  // namespace varnhold::provision
