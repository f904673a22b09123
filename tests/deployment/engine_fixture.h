#pragma once

#include <map>
#include <string>

#include "base/text.h"
#include "deployment/engines.h"
#include "tests/deployment/run_texts.h"
#include "tests/deployment/wizard_fixture.h"

namespace varnhold::deployment {

/// Tells the journal what a run shows in the list: `Status HOST1: <text>`, `Select HOST1`, `Visible HOST1`.
class RunListWatch : public ui::ListControlView {
 public:
  RunListWatch(ui::ListView& list, fakes::Journal& journal)
      : list_(list), journal_(journal), selected_(list.SelectedItem().get()) {
    for (auto& row : list.ListItems) statuses_[row.Text] = row.SubItems(kStatusSubItem);
    list.attach(*this);
  }

  void sync() override {}
  void rowsChanged() override {}
  void columnsChanged() override {}
  void ensureVisible(const ui::ListItem& row) override { journal_.push_back("Visible " + row.Text); }
  void rowChanged(const ui::ListItem& row) override {
    const auto& status = row.SubItems(kStatusSubItem);
    if (statuses_[row.Text] != status) journal_.push_back("Status " + row.Text + ": " + status);
    statuses_[row.Text] = status;
    const auto* const selected = list_.SelectedItem().get();
    if (selected == selected_) return;
    selected_ = selected;
    journal_.push_back("Select " + selected->Text);
  }

 private:
  ui::ListView& list_;
  fakes::Journal& journal_;
  std::map<std::string, std::string> statuses_;
  const ui::ListItem* selected_;
};

/// Tells the journal where the bar stands: `Progress 50`.
class ProgressWatch : public ui::ControlView {
 public:
  ProgressWatch(ui::ProgressBar& bar, fakes::Journal& journal) : bar_(bar), journal_(journal) {
    bar.attach(*this);
  }

  void sync() override {
    if (bar_.Value == last_) return;
    last_ = bar_.Value;
    journal_.push_back("Progress " + std::to_string(last_));
  }

 private:
  ui::ProgressBar& bar_;
  fakes::Journal& journal_;
  int last_ = 0;
};

/// The wizard before a run over computers that the network and the inventory know. The manager of both
/// products runs on MANAGER, a Vista.
class EngineTest : public WizardTest {
 protected:
  using Engine = void (*)(core::Program&, frmTargets&);

  EngineTest(Engine engine, int operation) : engine_(engine) {
    load(operation);
    targets.LocalOSMajor = 6;
    fake.libraries.computers["MANAGER"] = {};
    fake.libraries.onStore = [this](const platform::SystemDetails& details) { inventory.store(details); };
    targets.OptAgentbased.Value.settle(true);
    targets.optClient(0).Value.settle(true);
    targets.txtPathVHW.Text = R"(C:\A)";
    targets.txtPathTKW.Text = R"(C:\T)";
  }

  void run() {
    fake.journal.clear();
    targets.pbProgress.Value = 0;
    const RunListWatch list(targets.lvSystems, fake.journal);
    const ProgressWatch progress(targets.pbProgress, fake.journal);
    engine_(program, targets);
    EXPECT_FALSE(targets.RunBusy);
    EXPECT_EQ(ui.screen.MousePointer, ui::Pointer::Default);
    EXPECT_TRUE(fake.threads.openHandles().empty() || fake.threads.failsGetExitCode);
  }

  /// A computer of the network and the run list.
  fakes::FakeComputer& addUnknownComputer(const std::string& name, const std::string& status = "Unmanaged") {
    addRow(name, status);
    return fake.libraries.computers[toUpper(name)];
  }
  /// The same, in the inventory too.
  fakes::FakeComputer& addComputer(const std::string& name, const std::string& status = "Unmanaged",
                                   int type = 7) {
    platform::SystemDetails details;
    details.SystemName = name;
    details.SystemType = type;
    inventory.store(details);
    return addUnknownComputer(name, status);
  }
  /// The same, with an agent.
  fakes::FakeComputer& addAgentBased(const std::string& name, const std::string& status = kStandard,
                                     int type = 7) {
    inventory.addAgent(name, 1);
    return addComputer(name, status, type);
  }
  fakes::FakeComputer& addAgentless(const std::string& name) {
    inventory.addAgent(name, 1, 1);
    return addComputer(name, kAgentless);
  }
  void chooseAgentless() {
    targets.OptAgentbased.Value.settle(false);
    targets.OptAgentless.Value.settle(true);
  }
  void chooseTessmark() {
    targets.optClient(0).Value.settle(false);
    targets.optClient(1).Value.settle(true);
  }
  void logIn() {
    ui.nextModal("frmLogin", [this](ui::Form&) {
      frmLogin.txtAccount.userEdit(R"(CORP\admin)", 10);
      frmLogin.txtPassword.userEdit("secret", 6);
      frmLogin.cmdLogin.userClick();
    });
  }
  void refuseLogin() {
    ui.nextModal("frmLogin", [this](ui::Form&) { frmLogin.CmdCancel.userClick(); });
  }
  /// While the job of this computer runs, the operator asks to stop.
  void stopDuring(const std::string& name) {
    fake.libraries.computers[name].polls = 1;
    fake.libraries.onJob = [this, name](platform::DeploymentJob& job) {
      if (job.SystemName.ends_with(name)) fake.clock.onSleep = [this] { targets.StopRequested = true; };
    };
  }
  /// From now on the journal has a line `pump` where the run handles the events that wait.
  void watchPumps() {
    ui.onPump = [this] { fake.journal.push_back("pump"); };
  }
  void raiseFrom(const std::string& function) {
    fake.libraries.failures.insert({function, RuntimeError(kFileNotFound, "No " + function + ".")});
  }
  void refuseLog() { fake.files.refuse(kLog, platform::FileOutcome::Refused); }

  /// The log's records.
  Lines log() const {
    Lines records;
    for (const auto& line : split(fake.files.content(kLog).value_or(""), '\n')) {
      if (line.empty()) continue;
      EXPECT_TRUE(line.starts_with('"') && line.ends_with("\"\r")) << line;
      records.push_back(line.substr(1, line.size() - 3));
    }
    return records;
  }
  /// The calls of the closed library, by their names.
  Lines libraryCalls() const {
    Lines calls;
    for (const auto& line : fakes::linesOf(fake.journal, "qrv"))
      calls.push_back(line.substr(0, line.find(' ')));
    return calls;
  }
  /// The jobs of this function, as the library got them.
  Lines jobs(const std::string& function) const { return fakes::linesOf(fake.journal, function + " "); }
  /// The statements that change the inventory.
  Lines changes() const {
    return fakes::linesWithout(fakes::linesOf(fake.journal, "SQL: "), {"SQL: SELECT"});
  }
  /// The journal without what a run repeats for each computer on the screen.
  Lines deeds() const {
    return fakes::linesWithout(fake.journal, {"Select ", "Visible ", "Progress ", "Pointer "});
  }

  // Lines of the journal.
  static std::string status(const std::string& name, const std::string& text) {
    return "Status " + name + ": " + text;
  }
  static std::string logged(const std::string& text) {
    return "append " + kLog + ": \"" + text + "\"<CR><LF> -> Done";
  }
  static std::string findsSystem(const std::string& name) {
    return "SQL: SELECT * FROM System_Table WHERE System_Name = '" + name + "'";
  }
  static std::string asksIfAgentless(const std::string& name) {
    return "SQL: SELECT * FROM Module_Table WHERE (System_Name = '" + name + "' AND Module_ID = 1)";
  }
  /// The lines of one batch file of `net use`.
  static Lines netUse(const std::string& command, int sleepMs) {
    return {"createNew " + kBatch + " (owner only): net use " + command + "<CR><LF> -> Done",
            "ShellExecute open " + kBatch + " show 0 -> 33", "Sleep " + std::to_string(sleepMs),
            "remove " + kBatch + " -> Done"};
  }
  static Lines connects(const std::string& name) {
    return together({netUse(R"(\\)" + name + R"(\c$ secret /USER:CORP\admin)", 3000),
                     netUse(R"(\\)" + name + R"(\d$ secret /USER:CORP\admin)", 5000)});
  }
  static Lines disconnects(const std::string& name) {
    return together(
        {netUse(R"(\\)" + name + R"(\c$  /DELETE)", 2000), netUse(R"(\\)" + name + R"(\d$  /DELETE)", 2000)});
  }
  static Lines together(const std::vector<Lines>& parts) {
    Lines all;
    for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
  }

  static inline const std::string kLog = R"(C:\VARNHOLD\RemoteInstaller\AILog.txt)";
  static inline const std::string kBatch = R"(C:\VARNHOLD\RmTempLog.bat)";
  static inline const std::string kResetLog = R"(remove C:\VARNHOLD\AILog.txt -> NotFound)";
  static inline const std::string kRemins = R"(C:\VARNHOLD\RemoteInstaller\remins)";
  static inline const std::string kRestartFailed =
      "MessageBox critical: The 'Varnhold Agent' service could not be restarted. Please restart manually to "
      "apply the new settings.";

 private:
  Engine engine_;
};

}  // namespace varnhold::deployment
