#pragma once

#include <memory>

#include "platform/host_adapters.h"
#include "tests/companion/lab_fixture.h"

namespace varnhold::companion::test {

/// A manager's installation that this process runs in: the library finds it as it would find a real one. On
/// Windows that is the machine's registry, put back as it was at the end.
class LibraryHome {
 public:
  LibraryHome();
  ~LibraryHome();
  LibraryHome(const LibraryHome&) = delete;
  LibraryHome& operator=(const LibraryHome&) = delete;

  LabFixture& lab() { return lab_; }
  platform::HostAdapters& host() { return *host_; }

  /// Waits for a job's end and gives its exit code; closes the handle.
  std::uint32_t finish(platform::ThreadHandle thread);
  [[nodiscard]] std::string libraryPath() const;
  /// The version of the agents that the manager brings along.
  void setVersion(const std::string& version);

 private:
  /// Sets a value of the manager's key; what stood there is put back at the end.
  void set(const std::string& name, const std::string& text);

  LabFixture lab_;
  std::unique_ptr<platform::HostAdapters> host_;
  std::map<std::string, platform::RegistryValue> earlier_;
};

/// Makes the folder the home of this process, where the host has homes.
void useHome(const std::filesystem::path& folder);

}  // namespace varnhold::companion::test
