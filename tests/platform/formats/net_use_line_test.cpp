#include "platform/formats/net_use_line.h"

#include <gtest/gtest.h>

namespace varnhold::platform {
namespace {

NetUseLine connect(const char* share, const char* account, const char* password) {
  return {NetUseLine::Request::Connect, share, account, password};
}

TEST(NetUseLine, ReadsAConnection) {
  EXPECT_EQ(parseNetUseLine(R"(net use \\HOST1\c$ secret /USER:CORP\admin)"),
            connect(R"(\\HOST1\c$)", R"(CORP\admin)", "secret"));
}

TEST(NetUseLine, ReadsADisconnectionWithItsTwoBlanks) {
  EXPECT_EQ(parseNetUseLine(R"(net use \\HOST1\d$  /DELETE)"),
            (NetUseLine{NetUseLine::Request::Disconnect, R"(\\HOST1\d$)", "", ""}));
}

TEST(NetUseLine, TakesOneLineEndOfEitherKind) {
  const auto expected = connect(R"(\\H\c$)", R"(D\u)", "p");
  EXPECT_EQ(parseNetUseLine("net use \\\\H\\c$ p /USER:D\\u\r\n"), expected);
  EXPECT_EQ(parseNetUseLine("net use \\\\H\\c$ p /USER:D\\u\n"), expected);
  EXPECT_EQ(parseNetUseLine("net use \\\\H\\c$ p /USER:D\\u\n\n"), std::nullopt);
}

TEST(NetUseLine, KeepsEveryBlankOfAPassword) {
  EXPECT_EQ(parseNetUseLine(R"(net use \\H\c$ pass  word /USER:D\u)"),
            connect(R"(\\H\c$)", R"(D\u)", "pass  word"));
  EXPECT_EQ(parseNetUseLine(R"(net use \\H\c$  lead and trail  /USER:D\u)"),
            connect(R"(\\H\c$)", R"(D\u)", " lead and trail "));
}

TEST(NetUseLine, ReadsAnEmptyPassword) {
  EXPECT_EQ(parseNetUseLine(R"(net use \\H\c$  /USER:D\u)"), connect(R"(\\H\c$)", R"(D\u)", ""));
}

TEST(NetUseLine, LeavesSwitchesInsideAPasswordToThePassword) {
  EXPECT_EQ(parseNetUseLine(R"(net use \\H\c$ a /USER:b /DELETE /USER:D\u)"),
            connect(R"(\\H\c$)", R"(D\u)", "a /USER:b /DELETE"));
}

TEST(NetUseLine, KeepsEveryLetterOfPasswordAndAccount) {
  EXPECT_EQ(parseNetUseLine("net use \\\\H\\c$ Grö\"%PATH%^&|ß /USER:D\\Jürgen O'Neill"),
            connect(R"(\\H\c$)", "D\\Jürgen O'Neill", "Grö\"%PATH%^&|ß"));
}

TEST(NetUseLine, ReadsItsWordsInEitherCase) {
  EXPECT_EQ(parseNetUseLine(R"(NET USE \\h\C$ p /user:d\u)"), connect(R"(\\h\C$)", R"(d\u)", "p"));
  EXPECT_TRUE(parseNetUseLine(R"(Net Use \\h\C$ /delete)"));
}

TEST(NetUseLine, RefusesEverythingElse) {
  for (const char* text :
       {"", "\n", "net", "net use", "net use ", R"(net use \\H\c$)", R"(net use \\H\c$ )",
        R"(net use \\H\c$ secret)", R"(net use C: \\H\c$ secret /USER:D\u)",
        R"(net use \\H secret /USER:D\u)", R"(net use H\c$ p /USER:D\u)", R"(net user x /DELETE)",
        R"(del C:\x)", R"(@net use \\H\c$ p /USER:D\u)", R"(net use \\H\c$ x /DELETE)",
        "net use \\\\H\\c$ p /USER:D\\u\r\ndel C:\\x", "net use \\\\H\\c$ p\n /USER:D\\u"}) {
    EXPECT_EQ(parseNetUseLine(text), std::nullopt) << text;
  }
}

TEST(NetUseLine, RefusesANul) {
  EXPECT_EQ(parseNetUseLine(std::string_view("net use \\\\H\\c$ p\0 /USER:D\\u", 26)), std::nullopt);
}

}  // namespace
}  // namespace varnhold::platform
