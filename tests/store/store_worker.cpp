// A second process at work on the inventory, for the tests:
//   store_worker write PREFIX COUNT   adds COUNT agents, reads each back, changes every third; 0 when all
//   went well store_worker record PREFIX        adds agents until it is killed, and prints each name once its
//   row is written store_worker add NAME             adds one agent
// An error goes to standard output, and the exit status is 1.
#include <cstdlib>
#include <iostream>
#include <string>

#include "base/runtime_error.h"
#include "store/command.h"
#include "store/recordset.h"
#include "store/statements.h"

namespace {

using namespace varnhold;
using namespace varnhold::store;
namespace st = varnhold::store::statements;

class Worker {
 public:
  Worker() {
    connection_.Open("inventory", "", "");
    command_.ActiveConnection = &connection_;
  }

  void add(const std::string& name) {
    execute(st::fill(st::kAddVarnholdAgent,
                     {{"name", name}, {"module", 1}, {"path", "C:\\A"}, {"agentless", 0}}));
  }

  void write(const std::string& prefix, int count) {
    for (int i = 0; i < count; ++i) {
      const std::string name = prefix + std::to_string(i);
      add(name);
      if (i % 3 == 0) {
        execute(
            st::fill(st::kChangeAgent, {{"name", name}, {"module", 1}, {"path", "D:\\A"}, {"agentless", 0}}));
      }
      requireRow(name, i % 3 == 0 ? "D:\\A" : "C:\\A");
    }
  }

  void record(const std::string& prefix) {
    for (int i = 0;; ++i) {
      const std::string name = prefix + std::to_string(i);
      add(name);
      std::cout << name << std::endl;
    }
  }

 private:
  void execute(const std::string& statement) {
    command_.CommandText = statement;
    command_.Execute();
  }

  void requireRow(const std::string& name, const std::string& path) {
    Recordset rows;
    rows.Open("Module_Table", connection_, CursorType::Keyset, LockType::ReadOnly);
    rows.setFilter(st::fill(st::kAgentFilter, {{"name", name}, {"module", 1}}));
    if (rows.Eof() || rows.Fields("Install_Directory").value() != Value(path)) {
      throw RuntimeError(kDatabaseFailed, "The row of " + name + " is not what was written.");
    }
  }

  Connection connection_;
  Command command_;
};

}  // namespace

int main(int argc, char** argv) {
  const std::string mode = argc > 2 ? argv[1] : "";
  try {
    Worker worker;
    if (mode == "write") worker.write(argv[2], std::atoi(argv[3]));
    if (mode == "record") worker.record(argv[2]);
    if (mode == "add") worker.add(argv[2]);
    return mode.empty() ? 2 : 0;
  } catch (const RuntimeError& error) {
    std::cout << error.number() << " " << error.description() << std::endl;
    return 1;
  }
}
