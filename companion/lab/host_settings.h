#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "companion/remote_computer.h"

namespace varnhold::companion {

/// What `host.ini` says about a computer of the lab; docs/lab.md lists every key. What the file leaves open,
/// or says in a form that cannot be used, has the value stated here, and `problems` then holds a sentence for
/// it.
struct HostSettings {
  ComputerFacts facts;  ///< Windows XP, version 5, "C:\Program Files"
  bool answers = true;
  bool securityLog = true;
  std::string drives = "CD";      ///< letters of the drives that it has, upper case
  std::string account, password;  ///< of the one account that its shares accept; empty: any
  std::map<std::string, JobScript, std::less<>> scripts;    ///< by the job's name, lower case
  std::map<std::string, Win32Error, std::less<>> refusals;  ///< by the step's name, lower case
  std::vector<std::string> problems;
};

/// Reads the bytes of a host.ini for the computer of that name. Any bytes are accepted.
[[nodiscard]] HostSettings readHostSettings(std::string_view bytes, const std::string& computerName);

}  // namespace varnhold::companion
