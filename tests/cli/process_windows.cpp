#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "base/unicode.h"
#include "tests/cli/process.h"

namespace varnhold::cli {

const char* const kProgramSuffix = ".exe";
const char* const kLibraryName = "qrvUtil.dll";

namespace {

std::wstring wide(const std::string& text) {
  const auto units = toUtf16(text);
  return {units.begin(), units.end()};
}

/// An argument as the runtime of the program started takes it apart; ours hold neither quotes nor closing
/// backslashes.
std::wstring quoted(const std::string& argument) {
  return argument.find(' ') == std::string::npos ? wide(argument) : L"\"" + wide(argument) + L"\"";
}

std::system_error lastError(const std::string& what) {
  return {static_cast<int>(GetLastError()), std::system_category(), what};
}

}  // namespace

std::string driverManagerPath(const std::string& path) {
  auto unixPath = path.substr(0, 2) == "Z:" ? path.substr(2) : path;
  std::replace(unixPath.begin(), unixPath.end(), '\\', '/');
  return unixPath;
}

void forgetMachineState() {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Kelmont Works");
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\ODBC\\ODBC.INI");
}

std::string computerName() {
  wchar_t name[256] = {};
  DWORD size = 256;
  GetComputerNameW(name, &size);
  const std::wstring text = name;
  return fromUtf16(std::u16string(text.begin(), text.end()));
}

ProcessResult runProcess(const std::string& program, const std::vector<std::string>& arguments,
                         const std::map<std::string, std::string>& environment,
                         const std::string& errorFile) {
  for (const auto& [name, value] : environment)
    SetEnvironmentVariableW(wide(name).c_str(), wide(value).c_str());
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  // Wine's desktop process, which the first program with windows starts, inherits the file and keeps it open.
  const auto file = CreateFileW(wide(errorFile).c_str(), GENERIC_WRITE,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inheritable,
                                CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) throw lastError(errorFile + " cannot be written");
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdError = startup.hStdOutput = file;
  auto line = L"\"" + wide(program) + L"\"";
  for (const auto& argument : arguments) line += L" " + quoted(argument);
  PROCESS_INFORMATION process{};
  ProcessResult result;
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                      &process)) {
    throw lastError(program + " does not start");
  }
  DWORD status = 0;
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &status);
  result.exitStatus = static_cast<int>(status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  CloseHandle(file);
  std::ifstream in(std::filesystem::path(wide(errorFile)), std::ios::binary);
  result.standardError = {std::istreambuf_iterator<char>(in), {}};
  return result;
}

}  // namespace varnhold::cli
