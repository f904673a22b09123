#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

#include "tests/cli/process.h"

namespace varnhold::cli {

const char* const kProgramSuffix = "";
const char* const kLibraryName = "libqrvUtil.so";

std::string driverManagerPath(const std::string& path) {
  return path;
}

void forgetMachineState() {}

std::string computerName() {
  char name[256] = {};
  gethostname(name, sizeof name - 1);
  std::string text = name;
  text = text.substr(0, text.find('.'));
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
  return text;
}

ProcessResult runProcess(const std::string& program, const std::vector<std::string>& arguments,
                         const std::map<std::string, std::string>& environment,
                         const std::string& errorFile) {
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const auto& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  const auto child = fork();
  if (child == 0) {
    for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
    unsetenv("ODBCINI");
    const int file = open(errorFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, STDERR_FILENO);
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    execv(program.c_str(), argv.data());
    dprintf(STDERR_FILENO, "%s did not start: %s\n", program.c_str(), std::strerror(errno));
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  std::ifstream in(errorFile, std::ios::binary);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status),
          {std::istreambuf_iterator<char>(in), {}}};
}

}  // namespace varnhold::cli
