#include "startup/command_line.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "base/runtime_error.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::startup {
namespace {

constexpr const char* kDefaultPath = R"(%Program Files%\Kelmont Works\Varnhold)";

struct Reading {
  std::string text;
  std::int32_t action;
  TargetKind target;
  std::string value, path;
};

class CommandLineRun : public testing::TestWithParam<Reading> {};

TEST_P(CommandLineRun, IsReadAs) {
  const auto& expected = GetParam();
  const auto line = parseCommandLine(expected.text);
  EXPECT_EQ(line.kind, CommandLineKind::Run);
  EXPECT_EQ(line.action, expected.action);
  EXPECT_EQ(line.target, expected.target);
  EXPECT_EQ(line.value, expected.value);
  EXPECT_EQ(line.path, expected.path);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CommandLineRun,
    testing::Values(
        // Everything is upper case from here on.
        Reading{"-i -n:host1", 1, TargetKind::Name, "HOST1", kDefaultPath},
        Reading{"-U -F:list.txt", 2, TargetKind::File, "LIST.TXT", kDefaultPath},
        Reading{"-i -n:größe -p:c:\\straße", 1, TargetKind::Name, "GRÖßE ", "C:\\STRAßE"},
        // The value reaches up to "-P:", its trailing blank included.
        Reading{R"(-I -N:host1 -P:D:\APPS\AGENT)", 1, TargetKind::Name, "HOST1 ", R"(D:\APPS\AGENT)"},
        Reading{"-I -N: host 1 -P: D:\\A  B ", 1, TargetKind::Name, " HOST 1 ", " D:\\A  B"},
        // The path is all up to the end, switches included; the action is found there too.
        Reading{"-N:HOST1 -P:C:\\X -U", 2, TargetKind::Name, "HOST1 ", "C:\\X -U"},
        Reading{"-U -N:HOST1 -P:A-P:B", 2, TargetKind::Name, "HOST1 ", "A-P:B"},
        // A blank path is no path.
        Reading{"-I -N:HOST1 -P:", 1, TargetKind::Name, "HOST1 ", kDefaultPath},
        Reading{"-I -N:HOST1 -P:   ", 1, TargetKind::Name, "HOST1 ", kDefaultPath},
        // Switches are found anywhere.
        Reading{"-U -N:X-IB", 1, TargetKind::Name, "X-IB", kDefaultPath},
        Reading{"-N:HOST1 -I", 1, TargetKind::Name, "HOST1 -I", kDefaultPath},
        Reading{"-I -U -N:HOST1", 1, TargetKind::Name, "HOST1", kDefaultPath},
        Reading{"WEB-INSTALL-N:HOST1", 1, TargetKind::Name, "HOST1", kDefaultPath},
        // The name wins over the file, wherever each stands.
        Reading{"-I -F:LIST.TXT -N:HOST1", 1, TargetKind::Name, "HOST1", kDefaultPath},
        Reading{"-I -N:HOST1 -F:LIST.TXT", 1, TargetKind::Name, "HOST1 -F:LIST.TXT", kDefaultPath},
        // The first of several counts.
        Reading{"-I -N:A -N:B", 1, TargetKind::Name, "A -N:B", kDefaultPath},
        Reading{"  -I -N:HOST1  ", 1, TargetKind::Name, "HOST1", kDefaultPath},
        Reading{"-I -N:\tHOST1\t", 1, TargetKind::Name, "\tHOST1\t", kDefaultPath},
        Reading{"-I -N:\t", 1, TargetKind::Name, "\t", kDefaultPath},
        Reading{"-I \"-N:HOST1\"", 1, TargetKind::Name, "HOST1\"", kDefaultPath},
        Reading{"-I -N:\xFF\xC3", 1, TargetKind::Name, "\xFF\xC3", kDefaultPath},
        Reading{"-I -N:" + std::string(1000, 'n'), 1, TargetKind::Name, std::string(1000, 'N'),
                kDefaultPath}));

TEST(CommandLine, WithoutActionOrTargetAsksForUsage) {
  for (const char* text : {"", " ", "-N:HOST1", "-F:LIST.TXT", "-I", "-U", "/I /N:HOST1", "-I -N HOST1",
                           "-I HOST1", "-P:C:\\X", "I N:HOST1", "-I -P:C:\\X", "--help"}) {
    EXPECT_EQ(parseCommandLine(text).kind, CommandLineKind::Usage) << text;
  }
}

TEST(CommandLine, WithoutTargetAsksForUsageEvenWhenThePathStandsFirst) {
  EXPECT_EQ(parseCommandLine("-P:C:\\X -I").kind, CommandLineKind::Usage);
}

TEST(CommandLine, TellsABlankValueByItsTarget) {
  for (const char* text : {"-I -N:", "-I -N:   ", "-I -N:  -P:C:\\X", "-I -N:-P:C:\\X"}) {
    const auto line = parseCommandLine(text);
    EXPECT_EQ(line.kind, CommandLineKind::EmptyValue) << text;
    EXPECT_EQ(line.target, TargetKind::Name) << text;
  }
  const auto line = parseCommandLine("-U -F: ");
  EXPECT_EQ(line.kind, CommandLineKind::EmptyValue);
  EXPECT_EQ(line.target, TargetKind::File);
}

TEST(CommandLine, RaisesForAPathInFrontOfTheTarget) {
  for (const char* text :
       {"-I -P:C:\\X -N:HOST1", "-U -P: -F:LIST.TXT", "-P:-I-N:HOST1", "-I -F:A-P:B -N:HOST1"}) {
    try {
      static_cast<void>(parseCommandLine(text));
      FAIL() << text;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), 5) << text;
      EXPECT_EQ(error.description(), "Invalid procedure call or argument") << text;
    }
  }
}

TEST(ListFile, EndsLinesAtCrLfAndBoth) {
  EXPECT_THAT(computersOfList("A\nB\r\nC\rD"), LinesAre({"A", "B", "C", "D", ""}));
}

TEST(ListFile, NeedsNoFinalNewlineAndCountsNoneTwice) {
  EXPECT_THAT(computersOfList("A"), LinesAre({"A", ""}));
  EXPECT_THAT(computersOfList("A\r\n"), LinesAre({"A", ""}));
}

TEST(ListFile, KeepsEmptyLinesAsEmptyNames) {
  EXPECT_THAT(computersOfList("\r\n\nA\r\r"), LinesAre({"", "", "A", "", ""}));
}

TEST(ListFile, HasOneEmptyNameWhenItIsEmpty) {
  EXPECT_THAT(computersOfList(""), LinesAre({""}));
}

TEST(ListFile, TrimsLinesButNotTheNamesAtCommas) {
  EXPECT_THAT(computersOfList("  A \n\tB\t\n a , b "), LinesAre({"A", "\tB\t", "a ", " b", ""}));
}

TEST(ListFile, CountsALineWithCommasAsSeveralComputers) {
  EXPECT_THAT(computersOfList("a,b\n,\nc,"), LinesAre({"a", "b", "", "", "c", "", ""}));
}

TEST(ListFile, KeepsLettersAsTheyAre) {
  EXPECT_THAT(computersOfList("host1\nGröße\nO'Brien\n"), LinesAre({"host1", "Größe", "O'Brien", ""}));
}

TEST(ListFile, SkipsAByteOrderMark) {
  EXPECT_THAT(computersOfList("\xEF\xBB\xBFHOST1\r\nHOST2"), LinesAre({"HOST1", "HOST2", ""}));
  EXPECT_THAT(computersOfList("\xEF\xBB\xBF"), LinesAre({""}));
}

TEST(ListFile, ReadsUtf16WithAByteOrderMark) {
  const std::string bytes("\xFF\xFEH\0\xF6\0\r\0\n\0B\0x", 13);
  EXPECT_THAT(computersOfList(bytes), LinesAre({"Hö", "B", ""}));
}

TEST(ListFile, KeepsNulBytes) {
  EXPECT_THAT(computersOfList(std::string("A\0B\nC", 5)), LinesAre({std::string("A\0B", 3), "C", ""}));
}

TEST(ListFile, KeepsNamesOfAThousandCharacters) {
  const std::string name(1000, 'x');
  EXPECT_THAT(computersOfList(name + "\r\n" + name), LinesAre({name, name, ""}));
}

TEST(ListFile, OfTenMegabytesGivesEveryName) {
  std::string content;
  while (content.size() < 10'000'000) content += "HOST" + std::to_string(content.size()) + "\r\n";
  const auto computers = computersOfList(content);
  EXPECT_EQ(computers.size(), static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n')) + 1);
  EXPECT_EQ(computers.front(), "HOST0");
  EXPECT_EQ(computers.back(), "");
}

TEST(ListFile, OfTenMegabytesWithoutLineEndIsOneName) {
  const std::string content(10'000'000, 'x');
  const auto computers = computersOfList(content);
  ASSERT_EQ(computers.size(), 2u);
  EXPECT_EQ(computers.front().size(), content.size());
}

}  // namespace
}  // namespace varnhold::startup
