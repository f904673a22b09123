#include "companion/lab/host_settings.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "companion/ini_text.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

constexpr const char* kJobs[] = {"install",       "uninstall",          "upgrade",
                                 "version_check", "configuration_file", "ini"};
/// What can be delayed: the jobs, and the walk of the discovery at this computer.
constexpr const char* kDelays[] = {"install", "uninstall", "upgrade", "version_check", "configuration_file",
                                   "ini",     "discovery"};
constexpr const char* kSteps[] = {
    "connect", "version", "share", "directory", "copy", "config_file", "registry", "remote_registry",
    "service_manager", "service", "account", "start", "security", "stop", "find", "delete", "remove_registry",
    "remove_files",
    // of a Tessmark agent
    "snapshots", "remove_snapshots",
    // of an upgrade, over the domain or over IP
    "local_registry", "owner", "mode", "desktop", "agent_library", "resolve", "agent", "confirm",
    // of an agentless computer
    "security_log", "poll", "unpoll",
    // of nobody's job
    "logon_right"};

std::string lowerCase(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

template <typename Names>
bool holds(const Names& names, const std::string& name) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

std::optional<std::int32_t> number(const std::string& text) {
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<bool> yesOrNo(const std::string& text) {
  const std::string word = lowerCase(text);
  if (word == "yes" || word == "true" || word == "on" || word == "1") return true;
  if (word == "no" || word == "false" || word == "off" || word == "0") return false;
  return std::nullopt;
}

bool isDottedAddress(const std::string& text) {
  const auto parts = split(text, '.');
  return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), [](const std::string& part) {
           const auto value = number(part);
           return !part.empty() && part.size() <= 3 && value && *value >= 0 && *value <= 255;
         });
}

/// Reads the file key by key, and notes what cannot be used.
class Reader {
 public:
  Reader(std::string_view bytes, const std::string& computerName) : ini_(bytes) {
    settings_.facts = {computerName, {}, 10, 5, {}, {}, "C:\\Program Files"};
    settings_.problems = ini_.problems();
  }

  HostSettings read() {
    readHost();
    readAccount();
    readResults();
    readThreads();
    readDelays();
    readRefusals();
    readNames();
    return std::move(settings_);
  }

 private:
  void problem(std::string_view section, const std::string& key, std::string_view what) {
    settings_.problems.push_back("[" + std::string(section) + "] " + key + ": " + std::string(what));
  }

  template <typename Parse, typename Value>
  void take(std::string_view section, const std::string& key, Parse parse, Value& value,
            std::string_view wanted) {
    const auto text = ini_.value(section, key);
    if (!text) return;
    if (const auto parsed = parse(*text))
      value = *parsed;
    else
      problem(section, key, wanted);
  }

  void readHost() {
    ComputerFacts& facts = settings_.facts;
    const auto address = [](const std::string& text) {
      return isDottedAddress(text) ? std::optional(text) : std::nullopt;
    };
    const auto text = [](const std::string& value) { return std::optional(value); };
    const auto folder = [](const std::string& value) -> std::optional<std::string> {
      const auto path = readDrivePath(value);
      return path ? std::optional(path->text()) : std::nullopt;
    };
    const auto drives = [](const std::string& value) -> std::optional<std::string> {
      std::string letters = toUpper(replaceAll(value, " ", ""));
      const bool good =
          std::all_of(letters.begin(), letters.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
      return good ? std::optional(letters) : std::nullopt;
    };
    take("host", "address", address, facts.address, "is no dotted address, so the name does not resolve");
    take("host", "type", number, facts.systemType, "is no whole number; taken as 10");
    take("host", "os_major", number, facts.osMajor, "is no whole number; taken as 5");
    take("host", "domain", text, facts.domain, "");
    take("host", "description", text, facts.description, "");
    take("host", "program_files", folder, facts.programFiles, "is no full path; taken as C:\\Program Files");
    take("host", "drives", drives, settings_.drives, "is no list of drive letters; taken as CD");
    take("host", "answers", yesOrNo, settings_.answers, "is neither yes nor no; taken as yes");
    take("host", "security_log", yesOrNo, settings_.securityLog, "is neither yes nor no; taken as yes");
  }

  void readAccount() {
    settings_.account = ini_.value("account", "user").value_or("");
    settings_.password = ini_.value("account", "password").value_or("");
  }

  void readResults() {
    for (const std::string job : kJobs)
      take("result", job, number, settings_.scripts[job].result,
           "is no whole number; the job goes by itself");
  }

  void readThreads() {
    for (const std::string job : kJobs)
      take("no_thread", job, yesOrNo, settings_.scripts[job].noThread, "is neither yes nor no; taken as no");
  }

  void readDelays() {
    for (const std::string job : kDelays) {
      JobScript& script = settings_.scripts[job];
      if (lowerCase(ini_.value("delay_ms", job).value_or("")) == "never") {
        script.neverEnds = true;
        continue;
      }
      const auto delay = [](const std::string& text) -> std::optional<std::chrono::milliseconds> {
        const auto value = number(text);
        return value && *value >= 0 ? std::optional(std::chrono::milliseconds(*value)) : std::nullopt;
      };
      take("delay_ms", job, delay, script.delay, "is neither a number of milliseconds nor never; taken as 0");
    }
  }

  void readRefusals() {
    for (const std::string step : kSteps) {
      const auto error = [](const std::string& text) -> std::optional<Win32Error> {
        if (const auto value = number(text); value && *value > 1) return static_cast<Win32Error>(*value);
        const auto refused = yesOrNo(text);
        return refused ? std::optional(*refused ? kAccessDenied : kDone) : std::nullopt;
      };
      take("refuse", step, error, settings_.refusals[step],
           "is neither yes, no nor a Win32 error number; taken as no");
    }
  }

  /// A misspelt name would go unnoticed otherwise.
  void readNames() {
    constexpr const char* kHostKeys[] = {"address",       "type",   "os_major", "domain",      "description",
                                         "program_files", "drives", "answers",  "security_log"};
    constexpr const char* kAccountKeys[] = {"user", "password"};
    for (const std::string& section : ini_.sections()) {
      const std::string name = lowerCase(section);
      if (name == "host")
        checkKeys(section, kHostKeys);
      else if (name == "account")
        checkKeys(section, kAccountKeys);
      else if (name == "result" || name == "no_thread")
        checkKeys(section, kJobs);
      else if (name == "delay_ms")
        checkKeys(section, kDelays);
      else if (name == "refuse")
        checkKeys(section, kSteps);
      else
        settings_.problems.push_back("[" + section + "]: no such section");
    }
  }

  template <typename Names>
  void checkKeys(const std::string& section, const Names& names) {
    for (const std::string& key : ini_.keys(section))
      if (!holds(names, lowerCase(key))) problem(section, key, "no such key");
  }

  IniText ini_;
  HostSettings settings_;
};

}  // namespace

HostSettings readHostSettings(std::string_view bytes, const std::string& computerName) {
  return Reader(bytes, computerName).read();
}

}  // namespace varnhold::companion
