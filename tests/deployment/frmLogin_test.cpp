// The prompt for the account that reaches the computers of a run.
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::IsEmpty;

constexpr const char* kWrongFormat =
    R"(MessageBox exclamation: Please enter a valid Account Name in Domain\UserName format.)";

class LoginTest : public WizardTest {
 protected:
  void prompt(const std::function<void()>& script) {
    ui.nextModal("frmLogin", [this, script](ui::Form&) {
      script();
      frmLogin.Hide();
    });
    frmLogin.ShowModal();
  }
  void enter(const std::string& account, const std::string& password) {
    frmLogin.txtAccount.userEdit(account, 0);
    frmLogin.txtPassword.userEdit(password, 0);
  }
  /// The prompt answered with the account, and what stands in the program then: domain|user|password.
  std::string login(const std::string& account, const std::string& password) {
    prompt([&] {
      enter(account, password);
      frmLogin.cmdLogin.userClick();
    });
    return stored();
  }
  std::string stored() const {
    return program.gLoginDomain + "|" + program.gLoginUser + "|" + program.gLoginPassword;
  }
};

TEST_F(LoginTest, ReadsAsDesigned) {
  prompt([this] {
    EXPECT_EQ(frmLogin.Caption, "Login");
    EXPECT_EQ(frmLogin.lblInfo.Caption,
              "Please provide an account with sufficient privileges to access the network. Usually a Domain "
              "Admin account is required. Please enter the account name in \"DOMAIN\\USER\" format.");
    EXPECT_EQ(frmLogin.lblAccount.Caption, "&Account:");
    EXPECT_EQ(frmLogin.lblPassword.Caption, "&Password:");
    EXPECT_EQ(frmLogin.cmdLogin.Caption, "&Login");
    EXPECT_EQ(frmLogin.CmdCancel.Caption, "&Cancel");
    EXPECT_FALSE(frmLogin.txtPassword.PasswordChar.get().empty());
    EXPECT_EQ(frmLogin.ActiveControl(), &frmLogin.txtAccount);
  });
}

TEST_F(LoginTest, KeepsTheAccountAndGoesAway) {
  EXPECT_EQ(login(R"(CORP\admin)", "secret"), "CORP|admin|secret");
  EXPECT_TRUE(program.gLoginOK);
  EXPECT_TRUE(frmLogin.LoginAccepted);
  EXPECT_FALSE(frmLogin.isLoaded());
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(LoginTest, SplitsAtTheFirstBackslashAndTakesABlankPassword) {
  EXPECT_EQ(login(R"(CORP\sub\admin)", ""), R"(CORP|sub\admin|)");
}

TEST_F(LoginTest, RefusesAnAccountThatIsNotDomainAndUserAndStays) {
  for (const char* const account : {"", "admin", R"(CORP\)", R"(\admin)", R"(\)"}) {
    fake.journal.clear();
    program.gLoginOK = true;
    prompt([&] {
      enter(account, "secret");
      frmLogin.cmdLogin.userClick();
      EXPECT_TRUE(frmLogin.Visible()) << account;
      EXPECT_EQ(frmLogin.txtAccount.Text, account);
    });
    EXPECT_THAT(boxes(), LinesAre({kWrongFormat})) << account;
    EXPECT_EQ(stored(), "||") << account;
    EXPECT_FALSE(program.gLoginOK) << account;
    EXPECT_FALSE(frmLogin.LoginAccepted) << account;
    frmLogin.Unload();
  }
}

TEST_F(LoginTest, ARefusalLeavesTheAccountOfBefore) {
  login(R"(CORP\admin)", "secret");
  EXPECT_EQ(login("nobody", "other"), "CORP|admin|secret");
  EXPECT_FALSE(program.gLoginOK);
}

TEST_F(LoginTest, CancelEmptiesTheAccountButNotThatOneWasAccepted) {
  login(R"(CORP\admin)", "secret");
  prompt([this] { frmLogin.CmdCancel.userClick(); });
  EXPECT_EQ(stored(), "||");
  EXPECT_TRUE(frmLogin.LoginAccepted);
  EXPECT_FALSE(frmLogin.isLoaded());
}

TEST_F(LoginTest, EnterLogsInAndEscapeCancels) {
  prompt([this] {
    enter(R"(CORP\admin)", "secret");
    frmLogin.userKeyDown(ui::kKeyReturn);
  });
  EXPECT_EQ(stored(), "CORP|admin|secret");
  prompt([this] { frmLogin.userKeyDown(ui::kKeyEscape); });
  EXPECT_EQ(stored(), "||");
}

TEST_F(LoginTest, TheNextPromptIsEmptyAgain) {
  login(R"(CORP\admin)", "secret");
  prompt([this] {
    EXPECT_EQ(frmLogin.txtAccount.Text, "");
    EXPECT_EQ(frmLogin.txtPassword.Text, "");
  });
}

}  // namespace
}  // namespace varnhold::deployment
