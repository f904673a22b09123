#pragma once

#include <map>
#include <string>
#include <vector>

namespace varnhold::cli {

struct ProcessResult {
  int exitStatus = -1;
  std::string standardError;
};

/// A program of the build, started for real and waited for: its path, its arguments, and what its environment
/// has beside ours. Standard error is caught through `errorFile`. Each host has its own source.
[[nodiscard]] ProcessResult runProcess(const std::string& program, const std::vector<std::string>& arguments,
                                       const std::map<std::string, std::string>& environment,
                                       const std::string& errorFile);

/// Takes away what an earlier run left outside the home: on Windows the product's keys in the registry.
void forgetMachineState();

/// The name of this computer as the program sees it.
[[nodiscard]] std::string computerName();

/// How a library and a program of the build are named, and where the odbc.ini of the host's driver manager
/// reads a path: under Wine that is a Unix path.
extern const char* const kProgramSuffix;
extern const char* const kLibraryName;
[[nodiscard]] std::string driverManagerPath(const std::string& path);

}  // namespace varnhold::cli
