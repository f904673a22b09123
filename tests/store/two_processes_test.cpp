#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "store/command.h"
#include "store/recordset.h"
#include "store/schema.h"
#include "tests/store/sqlite_data_sources.h"

extern char** environ;

namespace varnhold::store {
namespace {

[[maybe_unused]] const auto* const kDataSources = testing::AddGlobalTestEnvironment(new SqliteDataSources);

/// A worker in a process of its own, whose standard output is read here.
class Worker {
 public:
  explicit Worker(std::vector<std::string> arguments, const std::vector<std::string>& before = {}) {
    arguments.insert(arguments.begin(), VARNHOLD_STORE_WORKER);
    arguments.insert(arguments.begin(), before.begin(), before.end());
    std::vector<char*> words;
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    const int failed = posix_spawnp(&pid_, words[0], &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    output_ = ends[0];
    if (failed != 0) throw std::runtime_error("no process");
  }
  ~Worker() {
    if (pid_ > 0) killAndWait();
    close(output_);
  }

  /// Reads until the output holds that many lines, or ends.
  void readLines(std::size_t lines) {
    char buffer[4096];
    while (lines_ < lines) {
      const auto bytes = read(output_, buffer, sizeof buffer);
      if (bytes <= 0) return;
      for (ssize_t i = 0; i < bytes; ++i) lines_ += buffer[i] == '\n' ? 1 : 0;
      text_.append(buffer, static_cast<std::size_t>(bytes));
    }
  }

  void killAndWait() {
    kill(pid_, SIGKILL);
    waitpid(std::exchange(pid_, -1), nullptr, 0);
  }

  /// The exit status, -1 for a signal.
  int wait() {
    readLines(SIZE_MAX);
    int status = 0;
    waitpid(std::exchange(pid_, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  /// The whole lines of what was read.
  [[nodiscard]] std::vector<std::string> lines() const {
    std::vector<std::string> all;
    std::istringstream in(text_.substr(0, text_.rfind('\n') + 1));
    for (std::string line; std::getline(in, line);) all.push_back(line);
    return all;
  }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  pid_t pid_ = -1;
  int output_ = -1;
  std::size_t lines_ = 0;
  std::string text_;
};

class TwoProcesses : public testing::Test {
 protected:
  void SetUp() override {
    connection.Open("inventory", "", "");
    static const bool made = (createTables(connection), true);
    ASSERT_TRUE(made);
    execute("DELETE FROM Module_Table");
  }

  void execute(const std::string& statement) {
    Command command;
    command.ActiveConnection = &connection;
    command.CommandText = statement;
    command.Execute();
  }

  std::set<std::string> namesStored() {
    std::set<std::string> names;
    Recordset rows;
    rows.Open("Module_Table", connection, CursorType::Static, LockType::ReadOnly);
    for (; !rows.Eof(); rows.MoveNext()) names.insert(rows.Fields("System_Name").value().asText());
    return names;
  }

  std::string integrity() {
    Recordset rows;
    rows.Open("SELECT integrity_check FROM pragma_integrity_check", connection, CursorType::Static,
              LockType::ReadOnly);
    return rows.Fields("integrity_check").value().asText();
  }

  Connection connection;
};

TEST_F(TwoProcesses, WriteAndReadAtOnceWithoutAnErrorOrALostRow) {
  constexpr int kRows = 2000;
  Worker first({"write", "FIRST", std::to_string(kRows)}), second({"write", "SECOND", std::to_string(kRows)});
  EXPECT_EQ(first.wait(), 0) << first.text();
  EXPECT_EQ(second.wait(), 0) << second.text();
  const auto names = namesStored();
  EXPECT_EQ(names.size(), 2u * kRows);
  EXPECT_TRUE(names.count("FIRST1999") == 1 && names.count("SECOND1999") == 1);
  EXPECT_EQ(integrity(), "ok");
}

TEST_F(TwoProcesses, AKilledWriterLosesNoRowThatItWasToldIsWritten) {
  for (int round = 0; round < 20; ++round) {
    Worker writer({"record", "R" + std::to_string(round) + "_"});
    writer.readLines(static_cast<std::size_t>(1 + round * 7));
    writer.killAndWait();
    writer.readLines(SIZE_MAX);
    const auto names = namesStored();
    for (const std::string& name : writer.lines()) ASSERT_EQ(names.count(name), 1u) << name;
  }
  EXPECT_EQ(integrity(), "ok");
  connection.Close();
  connection.Open("inventory", "", "");
  EXPECT_EQ(integrity(), "ok");
}

/// Rights do not bind root, so that a worker runs as somebody who owns nothing.
std::vector<std::string> asSomebodyElse() {
  if (geteuid() != 0) return {};
  return {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "--"};
}

namespace fs = std::filesystem;
constexpr auto kReadable = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;

TEST_F(TwoProcesses, AReadOnlyDatabaseIsToldAsSuch) {
  connection.Close();
  fs::permissions(kFolder + "/odbc.ini", fs::perms::others_write | fs::perms::others_read,
                  fs::perm_options::add);
  fs::permissions(kFolder + "/qrvdbv3.mdb", kReadable);
  fs::permissions(kFolder, kReadable | fs::perms::owner_exec | fs::perms::others_exec);
  Worker worker({"add", "X"}, asSomebodyElse());
  EXPECT_EQ(worker.wait(), 1);
  fs::permissions(kFolder, fs::perms::owner_all, fs::perm_options::add);
  fs::permissions(kFolder + "/qrvdbv3.mdb", fs::perms::owner_write, fs::perm_options::add);
  EXPECT_EQ(worker.text().substr(0, 12), std::to_string(kDatabaseFailed) + " ");
  EXPECT_NE(worker.text().find("The database can only be read. Check the rights on its file and folder."),
            std::string::npos)
      << worker.text();
}

TEST_F(TwoProcesses, SettingsThatTheDriverManagerCannotReadAreNoEmptyInventory) {
  fs::permissions(kFolder + "/odbc.ini", kReadable);
  Worker worker({"add", "X"}, asSomebodyElse());
  EXPECT_EQ(worker.wait(), 1);
  fs::permissions(kFolder + "/odbc.ini", fs::perms::owner_write, fs::perm_options::add);
  EXPECT_EQ(worker.text().substr(0, 12), std::to_string(kDatabaseFailed) + " ");
  EXPECT_NE(worker.text().find("odbc.ini must be writable for this user"), std::string::npos)
      << worker.text();
}

}  // namespace
}  // namespace varnhold::store
