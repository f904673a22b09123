#include "tests/cli/stage.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "store/command.h"
#include "store/data_source.h"
#include "store/recordset.h"
#include "tests/cli/process.h"

namespace varnhold::cli {
namespace {

namespace fs = std::filesystem;

const std::string kProgram = "AgentInstaller" + std::string(kProgramSuffix);
const fs::path kBin = fs::path(VARNHOLD_BIN_DIR).make_preferred();

std::string textOf(const fs::path& path) {
  const auto text = path.u8string();
  return {text.begin(), text.end()};
}

std::string readFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void writeBytes(const fs::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<std::string> linesOf(const std::string& text, const std::string& end) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const auto at = text.find(end, start);
    lines.push_back(text.substr(start, at - start));
    start = at == std::string::npos ? text.size() : at + end.size();
  }
  return lines;
}

/// Is this the one fixed form of a log line's time, such as `1/31/2026 4:05:09 PM`?
bool isStamp(const std::string& text) {
  int month = 0, day = 0, year = 0, hour = 0, minute = 0, second = 0;
  char half = 0;
  if (std::sscanf(text.c_str(), "%d/%d/%d %d:%d:%d %cM", &month, &day, &year, &hour, &minute, &second,
                  &half) != 7) {
    return false;
  }
  char written[64];
  std::snprintf(written, sizeof written, "%d/%d/%d %d:%02d:%02d %cM", month, day, year, hour, minute, second,
                half);
  return text == written && month >= 1 && month <= 12 && day >= 1 && day <= 31 && hour >= 1 && hour <= 12 &&
         minute < 60 && second < 60 && (half == 'A' || half == 'P');
}

std::string withoutStamp(const std::string& line) {
  const auto end = line.find(" :: ");
  return end != std::string::npos && isStamp(line.substr(0, end)) ? "<time>" + line.substr(end) : line;
}

/// The folder that the build's test run gives each program for itself, in the environment variable
/// VARNHOLD_STAGE.
fs::path stageFolder() {
  const char* const folder = std::getenv("VARNHOLD_STAGE");
  if (folder == nullptr)
    throw std::runtime_error("VARNHOLD_STAGE names no folder; run this test through ctest");
  return fs::path(folder).make_preferred();
}

}  // namespace

Stage::Stage(int labComputers) : home_(stageFolder() / "the home") {
  fs::remove_all(home_);
  forgetMachineState();
  fs::create_directories(stageFolder());
  const auto provision = textOf(kBin / ("varnhold-provision" + std::string(kProgramSuffix)));
  writeBytes(stageFolder() / "odbc.ini",
             store::renderSqliteDataSource("qrvdb", driverManagerPath(textOf(home_ / "qrvdbv3.mdb"))));
  const auto provisioned =
      runProcess(provision, {"--home", textOf(home_), "--lab", std::to_string(labComputers)}, {},
                 textOf(stageFolder() / "provision.err"));
  if (provisioned.exitStatus != 0)
    throw std::runtime_error("provisioning ended with status " + std::to_string(provisioned.exitStatus) +
                             ": " + provisioned.standardError);
  fs::copy_file(kBin / kProgram, home_ / kProgram);
  putLibrary("recorder");
}

void Stage::putLibrary(const std::string& folder) {
  takeLibraryAway();
  fs::copy_file(kBin / folder / kLibraryName, home_ / kLibraryName);
}

void Stage::takeLibraryAway() {
  fs::remove(home_ / kLibraryName);
}

void Stage::putCompanion() {
  takeLibraryAway();
  fs::copy_file(companionLibrary(), home_ / kLibraryName);
}

fs::path Stage::companionLibrary() {
  return kBin / kLibraryName;
}

void Stage::addComputer(const std::string& name, const std::string& hostIni) {
  fs::create_directories(home_ / "lab" / name / "C");
  writeFile("lab/" + name + "/host.ini", hostIni);
}

void Stage::writeFile(const std::string& name, const std::string& bytes) {
  writeBytes(home_ / name, bytes);
}

Stage::Outcome Stage::run(const std::vector<std::string>& arguments) {
  const auto callLog = stageFolder() / "calls.txt";
  fs::remove(callLog);
  const auto process = runProcess(textOf(home_ / kProgram), arguments,
                                  {{"VARNHOLD_HOME", textOf(home_)},
                                   {"VARNHOLD_CALL_LOG", textOf(callLog)},
                                   {"VARNHOLD_RECORDED_LIBRARY", textOf(companionLibrary())}},
                                  textOf(stageFolder() / "run.err"));
  Outcome outcome{process.exitStatus, replaceAll(process.standardError, textOf(home_), "<home>"), {}, {}};
  const auto log = linesOf(readFile(home_ / "AILog.txt"), "\r\n");
  for (auto i = std::exchange(logLinesSeen_, log.size()); i < log.size(); ++i) {
    outcome.log.push_back(withoutStamp(log[i]));
  }
  for (const auto& call : linesOf(readFile(callLog), "\n")) {
    outcome.calls.push_back(replaceAll(call, textOf(home_), "<home>"));
  }
  return outcome;
}

namespace {

std::vector<std::string> rows(const std::string& query, const std::vector<std::string>& columns) {
  store::Connection connection;
  connection.Open("qrvdb", "", "");
  store::Recordset set;
  set.Open(query, connection, store::CursorType::Static, store::LockType::ReadOnly);
  std::vector<std::string> lines;
  for (; !set.Eof(); set.MoveNext()) {
    std::string line;
    for (const auto& column : columns) {
      const auto value = set.Fields(column).value();
      line += (line.empty() ? "" : "|") + (value.isNull() ? std::string("NULL") : value.asText());
    }
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

std::vector<std::string> Stage::computers() {
  return rows("SELECT * FROM System_Table ORDER BY System_Name",
              {"System_Name", "System_Type", "IP_Address"});
}

std::vector<std::string> Stage::agents() {
  return rows("SELECT * FROM Module_Table ORDER BY System_Name, Module_ID",
              {"System_Name", "Module_ID", "Install_Directory", "Manual", "Agentless"});
}

void Stage::execute(const std::string& statement) {
  store::Connection connection;
  connection.Open("qrvdb", "", "");
  store::Command command;
  command.ActiveConnection = &connection;
  command.CommandText = statement;
  command.Execute();
}

}  // namespace varnhold::cli
