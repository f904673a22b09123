#include "deployment/result_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "tests/deployment/result_catalogue_expected.h"

namespace varnhold::deployment {
namespace {

constexpr const char* kUnknown = "Unknown error.";

bool isListed(std::int32_t code) {
  return std::any_of(kExpectedTexts.begin(), kExpectedTexts.end(),
                     [code](const ExpectedTexts& row) { return row.code == code; });
}

TEST(ResultCatalogue, WordsEveryDocumentedCodeInBothCatalogues) {
  ASSERT_EQ(kExpectedTexts.size(), 128u);
  for (const auto& row : kExpectedTexts) {
    EXPECT_EQ(VarnholdResultText(row.code, "HOST7"), row.varnhold) << row.code;
    EXPECT_EQ(TessmarkResultText(row.code, "HOST7"), row.tessmark) << row.code;
  }
}

/// The line of the user's guide that explains the code; empty where there is none.
std::string lineOfGuide(std::int32_t code) {
  std::ifstream guide(VARNHOLD_SOURCE_DIR "/docs/deploying/results.md");
  const auto start = "| " + std::to_string(code) + " |";
  for (std::string line; std::getline(guide, line);) {
    if (line.starts_with(start)) return line;
  }
  return {};
}

TEST(ResultCatalogue, IsExplainedToTheUserCodeByCode) {
  for (const auto& row : kExpectedTexts) {
    const std::string varnhold = row.varnhold;
    auto text = replaceAll(varnhold == kUnknown ? row.tessmark : varnhold, "HOST7", "NAME");
    text = text.substr(0, text.find("\r\n"));
    EXPECT_NE(lineOfGuide(row.code).find(text), std::string::npos) << row.code << ": " << text;
  }
}

TEST(ResultCatalogue, AnswersEveryOtherCodeWithTheDefault) {
  for (std::int32_t code = -2000; code <= 5000; ++code) {
    if (isListed(code)) continue;
    EXPECT_EQ(VarnholdResultText(code, "HOST7"), kUnknown) << code;
    EXPECT_EQ(TessmarkResultText(code, "HOST7"), kUnknown) << code;
  }
  for (const std::int32_t code : {INT32_MIN, INT32_MAX})
    EXPECT_EQ(VarnholdResultText(code, "HOST7"), kUnknown);
}

TEST(ResultCatalogue, WordsNoSuccessAndNoFailedPoll) {
  for (const std::int32_t code : {0, -1, -1000, +kResultInstalled, +kResultUninstalled, +kResultUpgraded,
                                  +kResultOverIPSucceeded, 3021, 3024}) {
    EXPECT_EQ(VarnholdResultText(code, "HOST7"), kUnknown) << code;
    EXPECT_EQ(TessmarkResultText(code, "HOST7"), kUnknown) << code;
  }
}

TEST(ResultCatalogue, KnowsTheSuccessesByNumber) {
  EXPECT_EQ(kResultInstalled, 150);
  EXPECT_EQ(kResultUninstalled, 152);
  EXPECT_EQ(kResultInstalledWithoutSecurity, 167);
  EXPECT_EQ(kResultInstalledNotStarted, 232);
  EXPECT_EQ(kResultInstalledSnapshotsKept, 290);
  EXPECT_EQ(kResultUpgraded, 700);
  EXPECT_EQ(kResultOverIPSucceeded, 3000);
}

TEST(ResultCatalogue, WordsAJobThatDidNotStartInTheVarnholdCatalogueOnly) {
  EXPECT_EQ(VarnholdResultText(kResultNotStarted, ""),
            "Unknown error. This may be due to insufficient permission or network problems.");
  EXPECT_EQ(TessmarkResultText(kResultNotStarted, ""), kUnknown);
  EXPECT_EQ(kResultNotStarted, 710);
}

TEST(ResultCatalogue, WordsTheCodesMadeByTheProgramAlikeInBoth) {
  const std::string noAddress = "Could not resolve the IP Address for the system.";
  const std::string noFile = "Could not create the configuration file on the local system.";
  EXPECT_EQ(VarnholdResultText(kResultNameNotResolved, ""), noAddress);
  EXPECT_EQ(TessmarkResultText(kResultNameNotResolved, ""), noAddress);
  EXPECT_EQ(VarnholdResultText(kResultNoConfiguration, ""), noFile);
  EXPECT_EQ(TessmarkResultText(kResultNoConfiguration, ""), noFile);
  EXPECT_EQ(kResultNameNotResolved, 800);
  EXPECT_EQ(kResultNoConfiguration, 801);
}

TEST(ResultCatalogue, KeepsTheFailuresOfTheOverIPUpgradeAndOf149ToVarnhold) {
  for (const std::int32_t code :
       {149, 3001, 3002, 3007, 3011, 3012, 3013, 3017, 3018, 3019, 3020, 3022, 3023, 3025, 3026, 3027}) {
    EXPECT_NE(VarnholdResultText(code, ""), kUnknown) << code;
    EXPECT_EQ(TessmarkResultText(code, ""), kUnknown) << code;
  }
}

TEST(ResultCatalogue, NamesTheSystemInFiveCodesOnly) {
  std::set<std::int32_t> varnhold, tessmark;
  for (const auto& row : kExpectedTexts) {
    if (VarnholdResultText(row.code, "A") != VarnholdResultText(row.code, "B")) varnhold.insert(row.code);
    if (TessmarkResultText(row.code, "A") != TessmarkResultText(row.code, "B")) tessmark.insert(row.code);
  }
  EXPECT_EQ(varnhold, (std::set<std::int32_t>{257}));
  EXPECT_EQ(tessmark, (std::set<std::int32_t>{154, 155, 159, 160, 257}));
}

TEST(ResultCatalogue, LeavesAnEmptySystemNameEmpty) {
  EXPECT_EQ(TessmarkResultText(154, ""),
            "Unable to connect . This may be due to network problems. Please verify network connectivity.");
}

TEST(ResultCatalogue, TakesASystemNameAsItStands) {
  EXPECT_EQ(VarnholdResultText(257, "<system>"), "Agent service is disabled, please restart <system>.");
  EXPECT_EQ(VarnholdResultText(257, "O'NEIL"), "Agent service is disabled, please restart O'NEIL.");
}

using Pairs = std::vector<std::pair<std::int32_t, std::int32_t>>;

TEST(ResultCatalogue, SharesTheVarnholdTextsThatAreOne) {
  for (const auto& [one, other] : Pairs{
           {170, 180}, {193, 201}, {210, 220}, {211, 221}, {313, 457}, {196, 471}, {605, 606}, {606, 607}}) {
    EXPECT_EQ(VarnholdResultText(one, "HOST7"), VarnholdResultText(other, "HOST7")) << one << ' ' << other;
  }
}

TEST(ResultCatalogue, SharesTheTessmarkTextsThatAreOne) {
  for (const auto& [one, other] : Pairs{{160, 154},
                                        {193, 201},
                                        {210, 220},
                                        {211, 221},
                                        {313, 457},
                                        {196, 471},
                                        {325, 472},
                                        {605, 606},
                                        {606, 607}}) {
    EXPECT_EQ(TessmarkResultText(one, "HOST7"), TessmarkResultText(other, "HOST7")) << one << ' ' << other;
  }
}

TEST(ResultCatalogue, DescribesByProduct) {
  EXPECT_EQ(DescribeResult(600, "HOST7", Product::Varnhold), "Varnhold agent up & running.");
  EXPECT_EQ(DescribeResult(600, "HOST7", Product::Tessmark), "Tessmark Agent up & running.");
  EXPECT_EQ(DescribeResult(257, "HOST7", Product::Tessmark),
            "Agent service is disabled, please restart HOST7.");
}

}  // namespace
}  // namespace varnhold::deployment
