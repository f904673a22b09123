#include "companion/accounts.h"

#include <gmock/gmock.h>

#include "tests/companion/lab_fixture.h"

namespace varnhold::companion::test {
namespace {

using testing::HasSubstr;

class LabAccounts : public testing::Test {
 protected:
  LabAccounts() {
    host_ = lab_.addHost("WKS01");
    manager_ = lab_.addHost("MANAGER");
  }

  [[nodiscard]] Win32Error lookup(const std::string& machine, const std::string& account,
                                  KnownAccount& found) const {
    return lookupAccount(lab_.network(), "MANAGER", machine, account, found);
  }
  [[nodiscard]] std::string sidOf(const std::string& account, const std::string& machine = "WKS01") const {
    KnownAccount found;
    EXPECT_EQ(lookup(machine, account, found), kDone) << account;
    return sidText(found.sid.data()).value_or("none");
  }
  [[nodiscard]] Win32Error grant(const std::string& machine, const std::string& account) const {
    KnownAccount found;
    EXPECT_EQ(lookup("", account, found), kDone);
    return grantServiceLogon(lab_.network(), "MANAGER", machine, found.sid.data());
  }

  LabFixture lab_;
  std::filesystem::path host_, manager_;
};

TEST_F(LabAccounts, HaveTheSameSidOnEveryComputerAndInEveryRun) {
  EXPECT_EQ(sidOf(R"(CORP\admin)"), sidOf(R"(corp\ADMIN)", R"(\\MANAGER)"));
  // Written down once: another number would make rights that were granted before those of somebody else.
  EXPECT_EQ(sidOf(R"(CORP\admin)"), "S-1-5-21-2017558780-487341043-332429730-20168");
}

TEST_F(LabAccounts, OfOneDomainDifferInTheLastNumberOnly) {
  const std::string admin = sidOf(R"(CORP\admin)"), agent = sidOf(R"(CORP\agent)");
  EXPECT_NE(admin, agent);
  EXPECT_EQ(admin.substr(0, admin.rfind('-')), agent.substr(0, agent.rfind('-')));
  EXPECT_NE(sidOf(R"(SALES\admin)").substr(0, admin.rfind('-')), admin.substr(0, admin.rfind('-')));
}

TEST_F(LabAccounts, WithoutADomainBelongToTheComputer) {
  KnownAccount found;
  ASSERT_EQ(lookup("wks01", "admin", found), kDone);
  EXPECT_EQ(found.domain, "WKS01");
  EXPECT_EQ(sidOf(R"(.\admin)"), sidOf(R"(WKS01\admin)"));
  ASSERT_EQ(lookup("", "admin", found), kDone);
  EXPECT_EQ(found.domain, "MANAGER");
}

TEST_F(LabAccounts, AreUnknownWithoutAUserAndUnderTheServiceManagersOwnWord) {
  KnownAccount found;
  EXPECT_EQ(lookup("WKS01", "", found), kAccountUnknown);
  EXPECT_EQ(lookup("WKS01", R"(CORP\)", found), kAccountUnknown);
  EXPECT_EQ(lookup("WKS01", "localsystem", found), kAccountUnknown);
}

TEST_F(LabAccounts, AreNotFoundOnAComputerThatDoesNotAnswer) {
  lab_.addHost("DEAD", "[host]\nanswers = no\n");
  KnownAccount found;
  EXPECT_EQ(lookup("DEAD", R"(CORP\admin)", found), kServerUnavailable);
  EXPECT_EQ(lookup("NOBODY", R"(CORP\admin)", found), kServerUnavailable);
}

TEST(SidText, WritesTheNumbersOfASid) {
  const std::uint8_t sid[] = {1, 2, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 2, 0, 0};
  EXPECT_EQ(sidText(sid), "S-1-5-32-544");
}

TEST(SidText, IsNoneForBytesThatBeginNoSid) {
  const std::uint8_t other[] = {2, 0, 0, 0, 0, 0, 0, 5}, overlong[] = {1, 16, 0, 0, 0, 0, 0, 5};
  EXPECT_EQ(sidText(other), std::nullopt);
  EXPECT_EQ(sidText(overlong), std::nullopt);
  EXPECT_EQ(sidText(nullptr), std::nullopt);
}

TEST_F(LabAccounts, GetTheServiceLogonRightNotedOnTheComputer) {
  EXPECT_EQ(grant(R"(\\WKS01)", R"(CORP\agent)"), kDone);
  EXPECT_EQ(grant("wks01", R"(CORP\admin)"), kDone);
  EXPECT_EQ(grant("WKS01", R"(CORP\agent)"), kDone);
  EXPECT_EQ(readText(host_ / "rights.ini"), "[SeServiceLogonRight]\r\n" + sidOf(R"(CORP\agent)") +
                                                "=granted\r\n" + sidOf(R"(CORP\admin)") + "=granted\r\n");
}

TEST_F(LabAccounts, GetTheRightOnTheManagersOwnComputerWhenNoneIsNamed) {
  EXPECT_EQ(grant("", R"(CORP\agent)"), kDone);
  EXPECT_THAT(readText(manager_ / "rights.ini"), HasSubstr(sidOf(R"(CORP\agent)")));
}

TEST_F(LabAccounts, DoNotGetTheRightWhereItIsRefusedOrNobodyAnswers) {
  lab_.addHost("SHUT", "[refuse]\nlogon_right = yes\n");
  lab_.addHost("DEAD", "[host]\nanswers = no\n");
  EXPECT_EQ(grant("SHUT", R"(CORP\agent)"), kAccessDenied);
  EXPECT_EQ(grant("DEAD", R"(CORP\agent)"), kServerUnavailable);
  EXPECT_EQ(grant("NOBODY", R"(CORP\agent)"), kServerUnavailable);
  EXPECT_EQ(grantServiceLogon(lab_.network(), "MANAGER", "WKS01", nullptr), kInvalidSid);
  EXPECT_FALSE(std::filesystem::exists(host_ / "rights.ini"));
}

}  // namespace
}  // namespace varnhold::companion::test
