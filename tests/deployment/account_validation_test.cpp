// The wizard's checks of a typed account, in their order.
#include "deployment/account_validation.h"

#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr auto kMustBeQualified =
    R"(MessageBox exclamation: Please enter user name in the 'DOMAINNAME\USERNAME' format.)";
constexpr auto kFailed =
    R"(MessageBox exclamation: The user credentials failed. Please ensure that you have entered the user name in )"
    R"(the 'DOMAINNAME\USERNAME' format and the password is correct.)";
constexpr auto kBlankQuestion = "MessageBox question: Do you want to continue with a blank password?";

/// One of the two validators with the boxes that it reads.
struct Validator {
  const char* name;
  bool (*validate)(core::Program&, frmTargets&);
  ui::TextBox frmTargets::*account;
  ui::TextBox frmTargets::*password;
  ui::TextBox frmTargets::*confirmation;
};

class AccountValidation : public WizardTest, public testing::WithParamInterface<Validator> {
 protected:
  AccountValidation() {
    load();
    targets.optAccounts(1).Value = true;
    targets.lblProgress.Caption = "Ready";
    fake.secur32.passwords[R"(CORP\ADMIN)"] = "secret";
    fake.journal.clear();
  }

  bool validate(const std::string& account, const std::string& password, const std::string& confirmation) {
    (targets.*GetParam().account).Text = account;
    (targets.*GetParam().password).Text = password;
    (targets.*GetParam().confirmation).Text = confirmation;
    return GetParam().validate(program, targets);
  }
  bool validate(const std::string& account, const std::string& password) {
    return validate(account, password, password);
  }
  bool hasAskedThePackage() { return !fakes::linesOf(fake.journal, "secur32: ").empty(); }
};

TEST_P(AccountValidation, AcceptsAGenuineAccountUnderAnHourglass) {
  EXPECT_TRUE(validate(R"(CORP\admin)", "secret"));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_EQ(targets.lblProgress.Caption, "Checking user credientials...");
  EXPECT_EQ(fake.journal.front(), "Pointer 11");
  EXPECT_EQ(fake.journal.back(), "Pointer 0");
  EXPECT_TRUE(hasAskedThePackage());
}

TEST_P(AccountValidation, WantsAUserNameFirstOfAll) {
  EXPECT_FALSE(validate("", "one", "another"));
  EXPECT_THAT(fake.journal, LinesAre({"MessageBox exclamation: No username."}));
  EXPECT_EQ(targets.lblProgress.Caption, "Ready");
}

TEST_P(AccountValidation, ComparesThePasswordsByTheirExactLetters) {
  EXPECT_FALSE(validate("admin", "secret", "Secret"));
  EXPECT_THAT(fake.journal, LinesAre({"MessageBox exclamation: Passwords mismatch."}));
  EXPECT_EQ(targets.lblProgress.Caption, "Ready");
}

TEST_P(AccountValidation, EndsWithoutAWordWhenABlankPasswordIsNotMeant) {
  ui.nextAnswer(ui::Answer::No);
  EXPECT_FALSE(validate(R"(CORP\admin)", ""));
  EXPECT_THAT(fake.journal, LinesAre({std::string(kBlankQuestion) + " -> No"}));
  EXPECT_EQ(targets.lblProgress.Caption, "Ready");
}

TEST_P(AccountValidation, ChecksABlankPasswordThatIsMeant) {
  fake.secur32.passwords[R"(CORP\GUEST)"] = "";
  ui.nextAnswer(ui::Answer::Yes);
  EXPECT_TRUE(validate(R"(CORP\guest)", ""));
  EXPECT_THAT(boxes(), LinesAre({std::string(kBlankQuestion) + " -> Yes"}));
  EXPECT_TRUE(hasAskedThePackage());
}

TEST_P(AccountValidation, WantsADomainAndLeavesTheProgressTextThere) {
  EXPECT_FALSE(validate("admin", "secret"));
  EXPECT_THAT(fake.journal, LinesAre({kMustBeQualified}));
  EXPECT_EQ(targets.lblProgress.Caption, "Checking user credientials...");
}

TEST_P(AccountValidation, AsksOfABlankPasswordBeforeItWantsADomain) {
  ui.nextAnswer(ui::Answer::Yes);
  EXPECT_FALSE(validate("admin", ""));
  EXPECT_THAT(fake.journal, LinesAre({std::string(kBlankQuestion) + " -> Yes", kMustBeQualified}));
}

TEST_P(AccountValidation, RefusesAWrongPasswordWithNothingLeftOpen) {
  EXPECT_FALSE(validate(R"(CORP\admin)", "wrong"));
  EXPECT_THAT(boxes(), LinesAre({kFailed}));
  EXPECT_EQ(fake.secur32.live(), 0u);
  EXPECT_EQ(fake.heap.live(), 0u);
  EXPECT_THAT(fake.journal, testing::Each(Not(HasSubstr("wrong"))));
  EXPECT_EQ(targets.lblProgress.Caption, "Checking user credientials...");
}

TEST_P(AccountValidation, TellsOfTheFailureUnderTheNormalPointer) {
  EXPECT_FALSE(validate(R"(CORP\admin)", "wrong"));
  ASSERT_GE(fake.journal.size(), 2u);
  EXPECT_EQ(fake.journal[fake.journal.size() - 2], "Pointer 0");
  EXPECT_EQ(fake.journal.back(), kFailed);
}

TEST_P(AccountValidation, LeavesAnEmptyDomainToTheHandshake) {
  fake.secur32.passwords[R"(\ADMIN)"] = "secret";
  EXPECT_TRUE(validate(R"(\admin)", "secret"));
  EXPECT_FALSE(validate(R"(\other)", "secret"));
  EXPECT_THAT(boxes(), LinesAre({kFailed}));
}

TEST_P(AccountValidation, SplitsAtTheFirstBackslash) {
  fake.secur32.passwords[R"(CORP\SALES\ADMIN)"] = "secret";
  EXPECT_TRUE(validate(R"(CORP\sales\admin)", "secret"));
  ASSERT_TRUE(fake.secur32.identity);
  EXPECT_EQ(fake.secur32.identity->Domain, "CORP");
  EXPECT_EQ(fake.secur32.identity->User, R"(sales\admin)");
}

INSTANTIATE_TEST_SUITE_P(Pages, AccountValidation,
                         testing::Values(Validator{"Logon", ValidateLogonAccount, &frmTargets::txtUserName,
                                                   &frmTargets::txtPassword, &frmTargets::txtConfirmPassword},
                                         Validator{"Agentless", ValidateAgentlessAccount,
                                                   &frmTargets::txtAccount, &frmTargets::txtPwd,
                                                   &frmTargets::txtConfirmPwd}),
                         [](const auto& test) { return std::string(test.param.name); });

class UnusedAccount : public WizardTest {
 protected:
  UnusedAccount() {
    load();
    targets.optAccounts(0).Value = true;
    fake.journal.clear();
  }
};

TEST_F(UnusedAccount, IsNoMatterOnTheLogonPage) {
  EXPECT_TRUE(ValidateLogonAccount(program, targets));
  EXPECT_THAT(fake.journal, IsEmpty());
}

TEST_F(UnusedAccount, IsCheckedOnTheAgentlessPageAllTheSame) {
  EXPECT_FALSE(ValidateAgentlessAccount(program, targets));
  EXPECT_THAT(fake.journal, LinesAre({"MessageBox exclamation: No username."}));
}

}  // namespace
}  // namespace varnhold::deployment
