#include "tools/provision/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace varnhold::provision {
namespace {

using testing::HasSubstr;
using Arguments = std::vector<std::string>;

struct WrongCase {
  Arguments arguments;
  std::string error;
};

TEST(ProvisionOptions, WithoutArgumentsIsTheHostsHomeWithALabOfTwelveAndAnEmptyInventory) {
  const auto [options, error] = parseOptions({});
  EXPECT_EQ(error, "");
  EXPECT_FALSE(options.home);
  EXPECT_EQ(options.labComputers, 12);
  EXPECT_EQ(options.inventoryComputers, 0);
  EXPECT_FALSE(options.help);
}

TEST(ProvisionOptions, TakesAValueAsTheNextArgumentOrBehindAnEqualsSign) {
  for (const auto& arguments : {Arguments{"--home", "/a b/ü", "--lab", "3", "--computers", "1000"},
                                Arguments{"--computers=1000", "--lab=3", "--home=/a b/ü"}}) {
    const auto [options, error] = parseOptions(arguments);
    EXPECT_EQ(error, "");
    EXPECT_EQ(options.home, "/a b/ü");
    EXPECT_EQ(options.labComputers, 3);
    EXPECT_EQ(options.inventoryComputers, 1000);
  }
}

TEST(ProvisionOptions, TakesTheGreatestAndTheSmallestNumbers) {
  EXPECT_EQ(parseOptions({"--lab", "0"}).options.labComputers, 0);
  EXPECT_EQ(parseOptions({"--lab", "10000"}).options.labComputers, 10'000);
  EXPECT_EQ(parseOptions({"--computers", "999999"}).options.inventoryComputers, 999'999);
}

TEST(ProvisionOptions, SaysWhatIsWrongAndWithWhichArgument) {
  const std::vector<WrongCase> cases = {
      {{"--hme", "/x"}, "unknown option '--hme'"},
      {{"-h"}, "unknown option '-h'"},
      {{"/x"}, "unknown option '/x'"},
      {{""}, "unknown option ''"},
      {{"--Lab", "3"}, "unknown option '--Lab'"},
      {{"--home"}, "--home needs a value: DIR"},
      {{"--home", "--lab", "3"}, "--home needs a value: DIR"},
      {{"--home", ""}, "--home: the folder's name is empty"},
      {{"--home="}, "--home: the folder's name is empty"},
      {{"--lab"}, "--lab needs a value: N"},
      {{"--lab", ""}, "--lab: '' is not a whole number from 0 to 10000"},
      {{"--lab", "twelve"}, "--lab: 'twelve' is not a whole number from 0 to 10000"},
      {{"--lab", "3.5"}, "--lab: '3.5' is not a whole number from 0 to 10000"},
      {{"--lab", "3x"}, "--lab: '3x' is not a whole number from 0 to 10000"},
      {{"--lab", " 3"}, "--lab: ' 3' is not a whole number from 0 to 10000"},
      {{"--lab", "+3"}, "--lab: '+3' is not a whole number from 0 to 10000"},
      {{"--lab", "-1"}, "--lab: '-1' is not a whole number from 0 to 10000"},
      {{"--lab", "10001"}, "--lab: '10001' is not a whole number from 0 to 10000"},
      {{"--lab", "99999999999999999999"},
       "--lab: '99999999999999999999' is not a whole number from 0 to 10000"},
      {{"--computers", "1000000"}, "--computers: '1000000' is not a whole number from 0 to 999999"},
      {{"--computers", "1e3"}, "--computers: '1e3' is not a whole number from 0 to 999999"},
      {{"--lab", "1", "--lab=2"}, "--lab is given twice"},
      {{"--lab", "3", "more"}, "unknown option 'more'"},
  };
  for (const auto& wrong : cases) EXPECT_EQ(parseOptions(wrong.arguments).error, wrong.error);
}

TEST(ProvisionOptions, HelpWinsOverEveryMistake) {
  const auto [options, error] = parseOptions({"--lab", "many", "--help"});
  EXPECT_TRUE(options.help);
  EXPECT_EQ(error, "");
}

TEST(ProvisionOptions, TheUsageNamesEveryOptionAndTheExitStatus) {
  EXPECT_THAT(usage(), HasSubstr("Usage: varnhold-provision [--home DIR] [--lab N] [--computers N]\n"));
  EXPECT_THAT(usage(), HasSubstr("\n  --home DIR      the folder"));
  EXPECT_THAT(usage(), HasSubstr("\n  --lab N         computers"));
  EXPECT_THAT(usage(), HasSubstr("\n  --computers N   computers"));
  EXPECT_THAT(usage(), HasSubstr("\n  --help          this text\n"));
  EXPECT_THAT(usage(), HasSubstr("Exit status: 0 done, 1 not done (the message says why), 2 wrong usage.\n"));
}

}  // namespace
}  // namespace varnhold::provision
