#include "deployment/engine_run.h"

#include <algorithm>

#include "base/secret.h"
#include "base/text.h"
#include "core/program.h"
#include "deployment/admin_shares.h"
#include "deployment/frmLogin.h"
#include "deployment/registration.h"
#include "deployment/run_log.h"
#include "deployment/security_log_check.h"
#include "store/statements.h"
#include "store/table_names.h"
#include "ui/controls/screen.h"

namespace varnhold::deployment {
namespace {

constexpr const char* kInaccessible = "Not Accessible, will be skipped.";
constexpr const char* kAgentService = "Varnhold Agent";
constexpr std::int32_t kNotRegistered = -1;
constexpr std::int32_t kStandardMode = 1, kHighPerformanceMode = 5, kAgentlessMode = 0;

}  // namespace

void WizardRunScreen::pumpEvents() {
  form_.screen().DoEvents();
}

void WizardRunScreen::setStatus(std::int32_t row, const std::string& text) {
  form_.lvSystems.ListItems(row).SubItems(kStatusSubItem) = text;
}

bool passesGate(std::span<const GateTerm> terms, Product product, std::string_view status) {
  const auto own = product == Product::Varnhold ? GateTerm::For::Varnhold : GateTerm::For::Tessmark;
  return std::any_of(terms.begin(), terms.end(), [&](const GateTerm& term) {
    return (term.product == GateTerm::For::Either || term.product == own) &&
           containsIgnoringCase(status, term.text) == term.held;
  });
}

EngineRun::EngineRun(core::Program& program, frmTargets& form, ErrorPolicy policy)
    : program_(program), form_(form), screen_(form), policy_(policy) {
  command_.ActiveConnection = &program.gConn;
}

void EngineRun::run(const std::function<void()>& steps) {
  const WipedAtEnd wiped(job_.ServicePassword);
  setPointer(ui::Pointer::ArrowHourglass);
  form_.RunBusy = true;
  try {
    steps();
  } catch (const RuntimeError& error) {
    return endByError(error);
  }
  endBusy();
}

void EngineRun::endByError(const RuntimeError& error) {
  endBusy();
  if (policy_ == ErrorPolicy::EndRun) form_.screen().MsgBox({.text = error.description()});
}

void EngineRun::endBusy() {
  setPointer(ui::Pointer::Default);
  form_.RunBusy = false;
}

void EngineRun::step(const std::function<void()>& statement) const {
  if (policy_ == ErrorPolicy::EndRun) return statement();
  next_.step(statement);
}

void EngineRun::beginProgress() {
  step_ = progressStep(countRows());
  form_.pbProgress.Value = 0;
}

void EngineRun::askForLogin() {
  step([&] { form_.login().ShowModal(&form_); });
}

void EngineRun::workDownRows(const std::function<bool()>& work) {
  const auto rows = countRows();
  bool goesOn = true;
  for (std::int32_t row = 1; row <= rows && goesOn; ++row) {
    step([&] {
      goTo(row);
      goesOn = work();
    });
  }
}

void EngineRun::restartManagersAgent() {
  std::int32_t restarted = 0;
  step([&] { restarted = program_.host.libraries.qrvRestartService(program_.gLocalName, kAgentService); });
  if (restarted != 0) return;
  form_.screen().messageBox(
      "The 'Varnhold Agent' service could not be restarted. Please restart manually to apply the new "
      "settings.",
      platform::MessageIcon::Critical);
}

void EngineRun::goTo(std::int32_t row) {
  row_ = row;
  name_ = screen_.systemName(row);
}

const std::string& EngineRun::status() const {
  return form_.lvSystems.ListItems(row_).SubItems(kStatusSubItem).get();
}

bool EngineRun::statusHolds(std::string_view text) const {
  return containsIgnoringCase(status(), text);
}

void EngineRun::tellFault(const std::string& logged, const std::string& status) {
  log(logged);
  setStatus(status);
}

void EngineRun::skip(const std::string& reason) {
  tellFault("Skipped: " + name_ + " - " + reason, "Skipped: " + reason);
}

void EngineRun::log(const std::string& text) {
  form_.ErrorsSeen = true;
  step([&] { AppendDeploymentLog(program_, text); });
}

void EngineRun::selectRow() {
  form_.lvSystems.SetSelectedItem(&form_.lvSystems.ListItems(row_));
}

void EngineRun::setTarget() {
  target_ = progressTarget(form_.pbProgress.Value, step_);
}

bool EngineRun::isLocal() const {
  return equalsIgnoringCase(name_, program_.gLocalName);
}

void EngineRun::connectShares() {
  step([&] { ConnectAdminShares(program_, screen_, name_); });
}

void EngineRun::disconnectShares() {
  step([&] { DisconnectAdminShares(program_, screen_, name_); });
}

void EngineRun::connectSharesByLogin() {
  connectShares();
  if (!form_.login().LoginAccepted) setStatus(kInaccessible);
}

bool EngineRun::isInaccessible() const {
  return equalsIgnoringCase(status(), kInaccessible);
}

bool EngineRun::canReadSecurityLog() {
  bool readable = false;
  step([&] { readable = CheckRemoteSecurityLog(program_, screen_, row_); });
  return readable;
}

bool EngineRun::isRegistered() {
  std::int32_t registered = 0;
  step([&] { registered = EnsureSystemRegistered(program_, name_); });
  return registered != kNotRegistered;
}

bool EngineRun::resolves() {
  bool found = false;
  std::string name = name_, address;
  step([&] { found = program_.host.libraries.qrvGetSystemIPAddress(name, address); });
  return found;
}

void EngineRun::findDetails() {
  details_.SystemName = name_;
  details_.DetailLevel = 1;
  for (auto* const text : {&details_.ResolvedName, &details_.DetailsText1, &details_.DetailsText2})
    text->clear();
  pumpEvents();
  step([&] { static_cast<void>(program_.host.libraries.qrvFindSystemAndReturnDetails(details_)); });
  pumpEvents();
}

bool EngineRun::isVistaOrLater() const {
  return details_.OSMajorVersion >= kVistaMajorVersion;
}

void EngineRun::openSystems() {
  systems_.Open(std::string(store::mdDataBase::kSystemTable), program_.gConn, store::CursorType::ForwardOnly,
                store::LockType::ReadOnly);
}

std::int64_t EngineRun::systemType() {
  systems_.setFilter(store::statements::fill(store::statements::kSystemNameFilter, {{"name", name_}}));
  return systems_.Fields("System_Type").value().asInteger();
}

platform::ThreadHandle EngineRun::startJob() {
  platform::ThreadHandle thread = 0;
  step([&] { thread = StartDeploymentJob(program_, choices(), job_); });
  return thread;
}

JobChoices EngineRun::choices() const {
  return {.Operation = form_.Operation,
          .optClient0 = form_.optClient(0).Value,
          .chkCopyRemedialActionScripts = form_.chkCopyRemedialActionScripts.Value,
          .chkUpgradeRemedialActionScripts = form_.chkUpgradeRemedialActionScripts.Value,
          .optWinDom = form_.optWinDom.Value,
          .optOverIP = form_.optOverIP.Value};
}

std::int32_t EngineRun::waitForJob(platform::ThreadHandle thread, std::int32_t codeAlreadySet) {
  return WaitForJob(program_.host, screen_, thread, codeAlreadySet, target_);
}

std::string EngineRun::describe(std::int32_t result) const {
  return DescribeResult(result, name_, product());
}

void EngineRun::showMainFrame() {
  form_.freMain.Visible = true;
  form_.freMain.ZOrder();
}

void EngineRun::disableButtons() {
  form_.cmdInstall.Enabled = false;
  form_.cmdAdvanced.Enabled = false;
}

void EngineRun::showProgress() {
  showMainFrame();
  form_.pbProgress.Visible = true;
  form_.Refresh();
  pumpEvents();
}

void EngineRun::keepPagesAway() {
  form_.frePath.Visible = false;
  disableButtons();
  form_.cmdBack.Enabled = form_.cmdNext.Enabled = false;
  form_.Refresh();
  pumpEvents();
}

void EngineRun::setPointer(ui::Pointer pointer) {
  form_.screen().MousePointer = pointer;
}

Product EngineRun::product() const {
  return form_.optClient(0).Value ? Product::Varnhold : Product::Tessmark;
}

std::int32_t EngineRun::agentMode() const {
  if (isAgentless()) return kAgentlessMode;
  return form_.chkHPMode.Value == -1 ? kHighPerformanceMode : kStandardMode;
}

void EngineRun::chooseConfigFile() {
  if (form_.optConfig(1).Value) job_.ConfigFile = form_.txtTemplate.Text;
}

void EngineRun::execute(const std::string& statement) {
  command_.CommandText = statement;
  command_.Execute();
}

void EngineRun::recordAgent(const AgentRecord& record) {
  bool exists = false;
  step([&] { exists = hasAgentRow(record.filter); });
  step([&] { execute(exists ? record.change : record.add); });
}

bool EngineRun::hasAgentRow(const std::string& filter) const {
  store::Recordset agents;
  agents.Open(std::string(store::mdDataBase::kModuleTable), program_.gConn, store::CursorType::Keyset,
              store::LockType::ReadOnly);
  agents.setFilter(filter);
  return !agents.Bof() && !agents.Eof();
}

}  // namespace varnhold::deployment
