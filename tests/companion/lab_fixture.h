#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "companion/agent_material.h"
#include "companion/job.h"
#include "companion/lab/lab_network.h"

namespace varnhold::companion::test {

/// A folder of its own for one test, gone with it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

void writeText(const std::filesystem::path& file, std::string_view bytes);
[[nodiscard]] std::string readText(const std::filesystem::path& file);

/// All that lies below a folder, for comparing before and after: files with their bytes, folders with "/"
/// behind their name; services and registries by what they say, not by the order of their lines. Lock files
/// don't count.
[[nodiscard]] std::map<std::string, std::string> snapshot(const std::filesystem::path& folder);

/// A computer that refuses one step of a job, and the code that says so.
struct Refusal {
  const char* line;  ///< of its host.ini
  std::int32_t code;
};

/// The Varnhold agent's key in a computer's registry.
inline constexpr const char* kAgentKey = R"(SOFTWARE\Kelmont Works\Varnhold\Agent)";

/// An installation of the manager with a lab beside it.
class LabFixture {
 public:
  LabFixture();

  /// Makes the computer's folder with this host.ini.
  std::filesystem::path addHost(const std::string& name,
                                std::string_view hostIni = "[host]\naddress = 10.1.1.11\n");

  [[nodiscard]] std::filesystem::path installPath() const { return folder_.path(); }
  [[nodiscard]] std::filesystem::path labFolder() const { return folder_.path() / "lab"; }
  [[nodiscard]] std::filesystem::path libraryFolder() const {
    return folder_.path() / "RemoteInstaller" / "remins";
  }
  [[nodiscard]] std::filesystem::path agentFolder() const {
    return folder_.path() / "RemoteInstaller" / "Agent";
  }
  [[nodiscard]] LabNetwork network() const { return LabNetwork(labFolder()); }
  /// The change-tracking product's, beside the manager's own.
  [[nodiscard]] std::filesystem::path changesFolder() const { return folder_.path() / "Tessmark"; }
  [[nodiscard]] AgentMaterial material(const std::string& version = "7.0") const;
  [[nodiscard]] AgentMaterial changesMaterial(const std::string& version = "5.0") const;

  /// Run as the library's threads do, but here and without waiting.
  std::int32_t run(JobKind kind, const JobRecord& record, const AgentMaterial& material) const;
  std::int32_t upgrade(const JobRecord& record, const std::string& version = "7.0") const;
  std::int32_t install(const JobRecord& record, const std::string& version = "7.0") const;
  std::int32_t uninstall(const JobRecord& record) const;

 private:
  TemporaryFolder folder_;
};

/// An agent based install of the computer into the default folder.
[[nodiscard]] JobRecord jobFor(const std::string& name);

/// The service of that name on a lab computer; named "none" when it has none.
[[nodiscard]] ServiceEntry serviceOn(const LabFixture& lab, const std::string& computer,
                                     const std::string& service = "Varnhold Agent");
/// A value of a lab computer's registry up to its first NUL, or "none".
[[nodiscard]] std::string registryText(const LabFixture& lab, const std::string& computer,
                                       const std::string& key, const std::string& name);

/// The agent's folder on a lab computer, for the default program files.
[[nodiscard]] std::filesystem::path agentFolderOn(const std::filesystem::path& host);

}  // namespace varnhold::companion::test
