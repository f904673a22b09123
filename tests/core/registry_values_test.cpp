#include "core/registry_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <tuple>

namespace varnhold::core {
namespace {

using platform::kRegNumber;
using platform::kRegText;
using Entry = std::tuple<std::string, std::string, std::uint32_t>;

const std::set<Entry> kExpected = {
    {R"(SOFTWARE\Kelmont Works\Quorvane)", "DBPath", kRegText},
    {R"(SOFTWARE\Kelmont Works\Quorvane)", "MaxDBSize", kRegNumber},
    {R"(SOFTWARE\Kelmont Works\Quorvane)", "NetAccessMode", kRegNumber},
    {R"(SOFTWARE\Kelmont Works\Quorvane)", "LocalRootDir", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Manager)", "INSTALLPATH", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Manager)", "SWINSTALLPATH", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Manager)", "VHVersion", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Manager)", "SWVersion", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Manager)", "MpDbResend", kRegNumber},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Agent)", "InstallPath", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Agent)", "gPollingFreq", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Agent)", "gPollStartTime", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Agent)", "ConfigIPAddr", kRegText},
    {R"(SOFTWARE\Kelmont Works\Varnhold\Agent)", "enableprotection", kRegNumber},
    {R"(SOFTWARE\Kelmont Works\TKWindows)", "LocalRootDir", kRegText},
    {R"(SOFTWARE\Kelmont Works\TKWindows)", "Version", kRegText},
    {R"(SOFTWARE\Kelmont Works\TKWFileTracker)", "LocalRootDir", kRegText},
    {R"(SOFTWARE\Kelmont Works\TKWFileTracker)", "Version", kRegText},
    {R"(SOFTWARE\Kelmont Works\TKWRegTracker)", "LocalRootDir", kRegText},
    {R"(SOFTWARE\Kelmont Works\TKWRegTracker)", "Version", kRegText},
    {R"(SOFTWARE\Kelmont Works\qrvExplorer)", "Version", kRegText},
    {R"(SOFTWARE\Kelmont Works\Hestray)", "Version", kRegText},
    {R"(SOFTWARE\ODBC\ODBC.INI\ODBC Data Sources)", "qrvdb", kRegText},
};

TEST(RegistryValues, HoldEveryValueOnceWithItsType) {
  std::multiset<Entry> listed;
  for (const auto& value : kRegistryValues) listed.emplace(value.key, value.name, value.type);
  EXPECT_EQ(listed, (std::multiset<Entry>(kExpected.begin(), kExpected.end())));
}

TEST(RegistryValues, ExplainEveryValueInWords) {
  for (const auto& value : kRegistryValues) {
    for (const auto words : {value.whenMissing, value.readBy, value.writtenBy, value.use}) {
      EXPECT_FALSE(words.empty()) << value.key << " " << value.name;
      EXPECT_EQ(words.find('|'), std::string_view::npos) << words;
    }
  }
}

TEST(RegistryValues, RenderAsATableWithOneLineForEach) {
  const auto table = registryValuesAsMarkdown();
  EXPECT_EQ(static_cast<std::size_t>(std::count(table.begin(), table.end(), '\n')),
            kRegistryValues.size() + 2);
  EXPECT_TRUE(
      table.starts_with("| Key | Value | Type | When missing | Read by | Written by | Use |\n"
                        "| --- | --- | --- | --- | --- | --- | --- |\n"
                        "| `SOFTWARE\\Kelmont Works\\Quorvane` | `DBPath` | text | the folder of the program "
                        "| start-up | nobody | "
                        "folder of the inventory's database file |\n"))
      << table;
}

TEST(RegistryValues, AreDocumentedAsTheyAre) {
  std::ifstream file(VARNHOLD_SOURCE_DIR "/docs/registry.md", std::ios::binary);
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  EXPECT_NE(page.find(registryValuesAsMarkdown()), std::string::npos)
      << "docs/registry.md has to hold this table:\n"
      << registryValuesAsMarkdown();
}

}  // namespace
}  // namespace varnhold::core
