#include "tests/tools/provisioned_home.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/host_adapters.h"
#include "store/recordset.h"

namespace varnhold::provision {
namespace fs = std::filesystem;
namespace {

std::string quoted(const std::string& text) {
  std::string safe = "'";
  for (const char c : text) safe += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return safe + "'";
}

fs::path newFolder() {
  auto pattern = (fs::temp_directory_path() / "varnhold-provision-XXXXXX").string();
  return mkdtemp(pattern.data());
}

}  // namespace

Ended runProvision(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
                   const fs::path& folder) {
  const auto caught = newFolder();
  auto command = "cd " + quoted(folder.string()) + " && env -u ODBCINI -u VARNHOLD_HOME -u XDG_DATA_HOME";
  for (const auto& variable : environment) command += " " + quoted(variable);
  command += " " + quoted(VARNHOLD_PROVISION);
  for (const auto& argument : arguments) command += " " + quoted(argument);
  command += " </dev/null >" + quoted(caught / "out") + " 2>" + quoted(caught / "err");
  const int status = std::system(command.c_str());
  Ended ended{WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(caught / "out"),
              contentOf(caught / "err")};
  fs::remove_all(caught);
  return ended;
}

std::string contentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void writeFile(const fs::path& file, const std::string& content) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << content;
}

std::map<std::string, std::string> contentsOf(const fs::path& folder) {
  std::map<std::string, std::string> contents;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    contents[fs::relative(entry.path(), folder).string()] =
        entry.is_directory() ? std::string("<folder>") : contentOf(entry.path());
  return contents;
}

std::string managerName() {
  const auto adapters = platform::makeHostAdapters({});
  return adapters->environment().getComputerName().value();
}

std::string registryValue(const fs::path& home, std::string_view key, std::string_view name) {
  platform::ProcessStart start;
  start.home = home.string();
  const auto adapters = platform::makeHostAdapters(start);
  platform::RegistryValue value;
  const auto outcome =
      adapters->registry().query(platform::RegistryHive::LocalMachine, key, name, 1024, value);
  if (outcome != platform::RegistryOutcome::Done) return "missing";
  if (value.type == platform::kRegText) return "text:" + value.bytes.substr(0, value.bytes.find('\0'));
  std::string number = "number";
  for (const unsigned char byte : value.bytes) number += ":" + std::to_string(byte);
  return number;
}

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string iniFor(const fs::path& database) {
  return "[qrvdb]\nDriver = SQLite3\nDatabase = " + database.string() + "\n";
}

void openDatabase(store::Connection& connection, const fs::path& database) {
  static int count = 0;
  const auto name = "home" + std::to_string(++count);
  std::ofstream(std::getenv("ODBCINI"), std::ios::app)
      << "[" << name << "]\nDriver = SQLite3\nDatabase = " << database.string() << "\n";
  connection.Open(name, "", "");
}

std::vector<std::string> rowsOf(store::Connection& connection, const std::string& select,
                                const std::vector<std::string>& columns) {
  store::Recordset rows;
  rows.Open(select, connection, store::CursorType::Static, store::LockType::ReadOnly);
  std::vector<std::string> texts;
  for (; !rows.Eof(); rows.MoveNext()) {
    std::string text;
    for (const auto& column : columns) {
      const auto& value = rows.Fields(column).value();
      text += (&column == &columns.front() ? "" : "|") + (value.isNull() ? std::string("-") : value.asText());
    }
    texts.push_back(text);
  }
  return texts;
}

ProvisionTest::ProvisionTest() : folder(newFolder()) {}

ProvisionTest::~ProvisionTest() {
  std::error_code ignored;
  fs::remove_all(folder, ignored);
}

}  // namespace varnhold::provision
