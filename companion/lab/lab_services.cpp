#include "companion/lab/lab_services.h"

#include "base/text.h"
#include "companion/host.h"
#include "companion/paths.h"

namespace varnhold::companion {
namespace {

constexpr std::size_t kLargestFile = 1U << 20;

struct StartWord {
  ServiceStart start;
  const char* word;
};
constexpr StartWord kStartWords[] = {{ServiceStart::Automatic, "automatic"},
                                     {ServiceStart::Manual, "manual"},
                                     {ServiceStart::Disabled, "disabled"}};

std::filesystem::path servicesFile(const std::filesystem::path& computerFolder) {
  return computerFolder / "services.ini";
}

ServiceEntry entryOf(const IniText& ini, const std::string& name) {
  ServiceEntry entry;
  entry.name = name;
  entry.path = ini.value(name, "path").value_or("");
  entry.account = ini.value(name, "account").value_or(entry.account);
  entry.running = equalsIgnoringCase(ini.value(name, "state").value_or(""), "running");
  for (const StartWord& word : kStartWords)
    if (equalsIgnoringCase(ini.value(name, "start").value_or(""), word.word)) entry.start = word.start;
  entry.description = ini.value(name, "description").value_or("");
  entry.secured = equalsIgnoringCase(ini.value(name, "security").value_or(""), "configured");
  entry.interacts = equalsIgnoringCase(ini.value(name, "interact").value_or(""), "yes");
  return entry;
}

void writeSettings(IniText& ini, const ServiceEntry& entry) {
  ini.setValue(entry.name, "path", entry.path);
  ini.setValue(entry.name, "account", entry.account);
  for (const StartWord& word : kStartWords)
    if (word.start == entry.start) ini.setValue(entry.name, "start", word.word);
  ini.setValue(entry.name, "description", entry.description);
  if (entry.secured || ini.value(entry.name, "security"))
    ini.setValue(entry.name, "security", entry.secured ? "configured" : "");
  if (entry.interacts)
    ini.setValue(entry.name, "interact", "yes");
  else
    ini.removeValue(entry.name, "interact");
}

void writeState(IniText& ini, const std::string& name, bool running) {
  ini.setValue(name, "state", running ? "running" : "stopped");
}

}  // namespace

std::optional<IniText> LabServices::load() const {
  const auto file = servicesFile(computerFolder_);
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return IniText();
  const auto bytes = readWhole(file, kLargestFile);
  if (!bytes || bytes->find('\0') != std::string::npos) return std::nullopt;
  return IniText(*bytes);
}

Win32Error LabServices::edit(const std::function<Win32Error(IniText&)>& change) const {
  const auto lock = host::lockFile(computerFolder_ / "state.lock");
  auto ini = load();
  if (!ini) return kServiceDatabaseMissing;
  const std::string before = ini->text();
  if (const Win32Error error = change(*ini)) return error;
  const std::string after = ini->text();
  if (after == before) return kDone;
  if (!after.empty()) return host::replaceFile(servicesFile(computerFolder_), after);
  std::error_code error;
  std::filesystem::remove(servicesFile(computerFolder_), error);
  return error ? kAccessDenied : kDone;
}

Win32Error LabServices::open() {
  if (!settings_.answers) return kServerUnavailable;
  return load() ? kDone : kServiceDatabaseMissing;
}

Win32Error LabServices::query(const std::string& name, ServiceEntry& entry) {
  const auto ini = load();
  if (!ini) return kServiceDatabaseMissing;
  if (name.empty() || !ini->hasSection(name)) return kServiceMissing;
  entry = entryOf(*ini, name);
  return kDone;
}

Win32Error LabServices::create(const ServiceEntry& entry) {
  return edit([&](IniText& ini) {
    if (ini.hasSection(entry.name)) return kServiceExists;
    writeSettings(ini, entry);
    writeState(ini, entry.name, entry.running);
    return kDone;
  });
}

Win32Error LabServices::change(const ServiceEntry& entry, const std::string&) {
  return edit([&](IniText& ini) {
    if (!ini.hasSection(entry.name)) return kServiceMissing;
    writeSettings(ini, entry);
    return kDone;
  });
}

Win32Error LabServices::secure(const std::string& name) {
  return edit([&](IniText& ini) {
    if (!ini.hasSection(name)) return kServiceMissing;
    ini.setValue(name, "security", "configured");
    return kDone;
  });
}

Win32Error LabServices::start(const std::string& name) {
  return edit([&](IniText& ini) {
    if (!ini.hasSection(name)) return kServiceMissing;
    const ServiceEntry entry = entryOf(ini, name);
    if (entry.running) return kServiceRunning;
    if (entry.start == ServiceStart::Disabled) return kServiceDisabled;
    writeState(ini, name, true);
    return kDone;
  });
}

Win32Error LabServices::stop(const std::string& name) {
  return edit([&](IniText& ini) {
    if (!ini.hasSection(name)) return kServiceMissing;
    if (!entryOf(ini, name).running) return kServiceNotActive;
    writeState(ini, name, false);
    return kDone;
  });
}

Win32Error LabServices::remove(const std::string& name) {
  return edit([&](IniText& ini) {
    if (!ini.hasSection(name)) return kServiceMissing;
    ini.removeSection(name);
    return kDone;
  });
}

}  // namespace varnhold::companion
