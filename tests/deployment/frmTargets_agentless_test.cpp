// The page of the agentless options, and an install from it: what becomes of the account that it shows.
#include "core/registry_values.h"
#include "tests/deployment/wizard_fixture.h"
#include "tests/fakes/lines_are.h"

namespace varnhold::deployment {
namespace {

using testing::Contains;
using testing::IsEmpty;

constexpr const char* kComplete =
    "MessageBox information: The process is complete. Please check the status against each computer.";
/// The page has opened two handles before.
constexpr const char* kChanged = R"(ChangeServiceConfig 4 16 -1 -1 CORP\svc -> 0)";

/// The page of the agentless options.
class AgentlessPageTest : public WizardTest {
 protected:
  AgentlessPageTest() { fake.registry.makeKey(core::kAgentKey); }
  void showOptions(const std::function<void()>& script) {
    show(1, 2, [&] {
      targets.OptAgentless.Value = true;
      turnTo(5);
      script();
    });
  }
  void store(const char* frequency, const char* start) {
    fake.registry.setText(core::kAgentKey, "gPollingFreq", frequency);
    fake.registry.setText(core::kAgentKey, "gPollStartTime", start);
  }
};

TEST_F(AgentlessPageTest, AsksForPollingAndAnAccountInPlaceOfAPath) {
  showOptions([this] {
    EXPECT_EQ(targets.lblPathInfo.Caption, "Select the polling frequency :");
    EXPECT_TRUE(targets.picPolling.Visible);
    EXPECT_TRUE(targets.picAccount.Visible);
    EXPECT_TRUE(targets.cmdEditAccount.Visible);
    EXPECT_TRUE(targets.cmdEditAccount.Enabled);
    EXPECT_FALSE(targets.txtPathVHW.Visible || targets.txtPathTKW.Visible);
  });
}

TEST_F(AgentlessPageTest, ShowsAnHourAndMidnightWhereNothingIsStored) {
  showOptions([this] {
    EXPECT_EQ(targets.cboPollFreq.Text, "1 hour");
    EXPECT_EQ(targets.txtStartHour.Text, "00");
    EXPECT_EQ(targets.txtStartMin.Text, "00");
  });
}

TEST_F(AgentlessPageTest, ShowsWhatIsStored) {
  store("48:0", "6:5");
  showOptions([this] {
    EXPECT_EQ(targets.cboPollFreq.Text, "2 days");
    EXPECT_EQ(targets.txtStartHour.Text, "06");
    EXPECT_EQ(targets.txtStartMin.Text, "05");
  });
}

TEST_F(AgentlessPageTest, ShowsAStoredHourOutsideTheListAsOneAndSavesItSo) {
  store("13:0", "6:5");
  showOptions([this] {
    EXPECT_EQ(targets.cboPollFreq.Text, "1 hour");
    targets.SavePollingSettings();
    EXPECT_EQ(fake.registry.stored(core::kAgentKey, "gPollingFreq")->bytes.substr(0, 3), "1:0");
    EXPECT_EQ(fake.registry.stored(core::kAgentKey, "gPollStartTime")->bytes.substr(0, 3), "6:5");
  });
}

TEST_F(AgentlessPageTest, StoredMinutesOfAQuarterWinOverTheHours) {
  store("24:15", "0:0");
  showOptions([this] { EXPECT_EQ(targets.cboPollFreq.Text, "15 minutes"); });
}

/// From that page to the run.
class AgentlessRunTest : public WizardTest {
 protected:
  AgentlessRunTest() {
    addComputer("HOST1");
    for (const auto* name : {"HOST1", "MANAGER"}) fake.libraries.computers[name] = {};
    fake.services.services = {"Varnhold Agent", "Varnhold Receiver"};
    fake.accounts.accounts[R"(CORP\SVC)"] = {{1, 5, 0x2a}, "CORP"};
    fake.secur32.passwords[R"(CORP\SVC)"] = "secret";
  }

  /// Runs `script` on the page of the agentless options; a prompt of the run is refused.
  void showOptions(const std::function<void()>& script) {
    targets.Load();
    choose("HOST1");
    show(1, 1, [&] {
      targets.cmdNext.userClick();
      targets.OptAgentless.userClick();
      while (targets.cmdNext.Enabled) targets.cmdNext.userClick();
      script();
    });
  }
  void enter(const std::string& account, const std::string& password) {
    targets.txtAccount.userEdit(account, 0);
    targets.txtPwd.userEdit(password, 0);
    targets.txtConfirmPwd.userEdit(password, 0);
  }
  void install() {
    ui.nextModal("frmLogin", [](ui::Form& form) { form.Unload(); });
    fake.journal.clear();
    targets.cmdInstall.userClick();
  }
  /// The first line that begins so, as its place in the journal.
  std::size_t placeOf(const std::string& beginning) {
    const auto at = std::find_if(fake.journal.begin(), fake.journal.end(),
                                 [&](const auto& line) { return line.starts_with(beginning); });
    EXPECT_NE(at, fake.journal.end()) << beginning;
    return static_cast<std::size_t>(at - fake.journal.begin());
  }
  Lines changes() { return fakes::linesOf(fake.journal, "ChangeServiceConfig"); }
};

TEST_F(AgentlessRunTest, AGoodAccountIsGivenToTheServiceBeforeTheRun) {
  showOptions([this] {
    enter(R"(CORP\svc)", "secret");
    install();
  });
  EXPECT_THAT(changes(), LinesAre({kChanged}));
  EXPECT_EQ(fake.services.password, "secret");
  EXPECT_LT(placeOf("secur32: AcceptSecurityContext"), placeOf("ChangeServiceConfig"));
  EXPECT_LT(placeOf("ChangeServiceConfig"), placeOf("Show modal frmLogin"));
  EXPECT_LT(placeOf("Show modal frmLogin"), placeOf("qrvRestartService MANAGER Varnhold Agent"));
  EXPECT_THAT(boxes(), LinesAre({kComplete}));
}

TEST_F(AgentlessRunTest, AnAccountThatIsRefusedChangesNothing) {
  showOptions([this] {
    enter(R"(CORP\svc)", "wrong");
    fake.journal.clear();
    targets.cmdInstall.userClick();
    EXPECT_TRUE(targets.frePath.Visible);
  });
  EXPECT_THAT(changes(), IsEmpty());
  EXPECT_EQ(boxes().size(), 1u);
}

TEST_F(AgentlessRunTest, ALockedAccountIsInForceAndLeftAlone) {
  fake.services.startName = R"(CORP\svc)";
  showOptions([this] {
    EXPECT_EQ(targets.txtAccount.Text, R"(CORP\svc)");
    EXPECT_TRUE(targets.txtAccount.Locked);
    install();
  });
  EXPECT_THAT(changes(), IsEmpty());
  EXPECT_THAT(fakes::linesOf(fake.journal, "secur32"), IsEmpty());
  EXPECT_THAT(boxes(), LinesAre({kComplete}));
}

TEST_F(AgentlessRunTest, AnAccountThatIsUnlockedIsCheckedAndGiven) {
  fake.services.startName = R"(CORP\old)";
  showOptions([this] {
    targets.cmdEditAccount.userClick();
    enter(R"(CORP\svc)", "secret");
    install();
  });
  EXPECT_THAT(changes(), LinesAre({kChanged}));
}

TEST_F(AgentlessRunTest, AServiceThatRefusesTheAccountDoesNotStopTheInstall) {
  fake.services.changeError = 5;
  showOptions([this] {
    enter(R"(CORP\svc)", "secret");
    install();
    EXPECT_EQ(targets.lblProgress.Caption, "Completed successfully");
    EXPECT_FALSE(targets.cmdCancel.Enabled) << "it counts as no error";
  });
  EXPECT_THAT(fakes::linesOf(fake.journal, "append"),
              Contains(testing::HasSubstr("\"Could not change the service account On: MANAGER\"")));
  EXPECT_THAT(boxes(), LinesAre({kComplete}));
}

TEST_F(AgentlessRunTest, ALogThatCannotBeWrittenShowsItsErrorAndTheInstallGoesOn) {
  showOptions([this] {
    enter(R"(CORP\svc)", "secret");
    fake.files.refuse(R"(C:\VARNHOLD\RemoteInstaller\AILog.txt)", platform::FileOutcome::Refused);
    install();
  });
  ASSERT_EQ(boxes().size(), 2u);
  EXPECT_THAT(boxes().front(), testing::StartsWith("MessageBox critical: "));
  EXPECT_EQ(boxes().back(), kComplete);
}

}  // namespace
}  // namespace varnhold::deployment
