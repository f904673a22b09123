#include "companion/include/qrvhost.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/secret.h"
#include "companion/abi.h"
#include "companion/accounts.h"
#include "companion/host_view.h"
#include "companion/lab/lab_network.h"
#include "companion/paths.h"
#include "companion/surroundings.h"
#include "companion/worker_threads.h"

namespace varnhold::companion {
namespace {

LabNetwork lab() {
  return LabNetwork(readSurroundings().labFolder);
}

/// A caller's strings, of which one may be a password.
template <std::size_t Count>
struct CallersTexts {
  std::array<std::optional<std::string>, Count> all;

  ~CallersTexts() {
    for (auto& text : all)
      if (text) wipe(*text);
  }
  [[nodiscard]] bool areWhole() const {
    return std::all_of(all.begin(), all.end(), [](const auto& text) { return text.has_value(); });
  }
};

/// Calls `action` with the arguments as text; kInvalidParameter when one is null or too long, or the call
/// fails.
template <typename Action, typename... Arguments>
std::uint32_t call(Action action, const Arguments*... arguments) noexcept {
  return abi::guarded<std::uint32_t>(kInvalidParameter, [&]() -> std::uint32_t {
    const CallersTexts<sizeof...(arguments)> texts{{abi::text(arguments)...}};
    return texts.areWhole() ? action(texts.all.data()) : kInvalidParameter;
  });
}

using Texts = const std::optional<std::string>*;

}  // namespace
}  // namespace varnhold::companion

using namespace varnhold::companion;

int32_t qrvHostGetExitCodeThread(QrvThread thread, uint32_t* exitCode) {
  return abi::guarded<std::int32_t>(
      0, [&] { return exitCode != nullptr && workerExitCode(thread, *exitCode) ? 1 : 0; });
}

int32_t qrvHostTerminateThread(QrvThread thread, uint32_t exitCode) {
  return abi::guarded<std::int32_t>(0, [&] { return endWorker(thread, exitCode) ? 1 : 0; });
}

void qrvHostCloseHandle(QrvThread thread) {
  static_cast<void>(abi::guarded<bool>(false, [&] {
    closeWorker(thread);
    return true;
  }));
}

uint32_t qrvHostOpenServiceManager(const char* machine) {
  return call([](Texts text) { return openServiceManager(lab(), *text[0]); }, machine);
}

uint32_t qrvHostOpenService(const char* machine, const char* service) {
  return call([](Texts text) { return openService(lab(), *text[0], *text[1]); }, machine, service);
}

uint32_t qrvHostControlService(const char* machine, const char* service, uint32_t control) {
  return call([&](Texts text) { return controlService(lab(), *text[0], *text[1], control); }, machine,
              service);
}

uint32_t qrvHostStartService(const char* machine, const char* service) {
  return call([](Texts text) { return startService(lab(), *text[0], *text[1]); }, machine, service);
}

uint32_t qrvHostQueryServiceAccount(const char* machine, const char* service, char* account, uint32_t size,
                                    uint32_t* needed) {
  return call(
      [&](Texts text) -> std::uint32_t {
        std::string found;
        if (needed == nullptr) return kInvalidParameter;
        if (const Win32Error error = queryServiceAccount(lab(), *text[0], *text[1], found)) return error;
        *needed = abi::sizeOf(found);
        if (size < *needed) return kBufferInsufficient;
        return abi::write(account, size, found) ? kDone : kInvalidParameter;
      },
      machine, service);
}

uint32_t qrvHostChangeServiceAccount(const char* machine, const char* service, const char* account,
                                     const char* password) {
  return call([](Texts text) { return changeServiceAccount(lab(), *text[0], *text[1], *text[2], *text[3]); },
              machine, service, account, password);
}

uint32_t qrvHostLookupAccountName(const char* machine, const char* account, uint8_t* sid, uint32_t* sidSize,
                                  char* domain, uint32_t* domainSize) {
  return call(
      [&](Texts text) -> std::uint32_t {
        if (sidSize == nullptr || domainSize == nullptr) return kInvalidParameter;
        const Surroundings surroundings = readSurroundings();
        KnownAccount found;
        if (const Win32Error error = lookupAccount(LabNetwork(surroundings.labFolder),
                                                   surroundings.managerName, *text[0], *text[1], found))
          return error;
        const std::uint32_t sidRoom = std::exchange(*sidSize, static_cast<std::uint32_t>(found.sid.size()));
        const std::uint32_t domainRoom = std::exchange(*domainSize, abi::sizeOf(found.domain));
        if (sidRoom < *sidSize || domainRoom < *domainSize) return kBufferInsufficient;
        if (sid == nullptr || !abi::write(domain, domainRoom, found.domain)) return kInvalidParameter;
        std::copy(found.sid.begin(), found.sid.end(), sid);
        return kDone;
      },
      machine, account);
}

uint32_t qrvHostOpenEventLog(const char* machine, const char* log) {
  return call([](Texts text) { return openEventLog(lab(), *text[0], *text[1]); }, machine, log);
}

uint32_t qrvHostConnectShare(const char* share, const char* account, const char* password) {
  return call([](Texts text) { return ownShareConnections().connect(lab(), *text[0], *text[1], *text[2]); },
              share, account, password);
}

uint32_t qrvHostDisconnectShare(const char* share) {
  return call([](Texts text) { return ownShareConnections().disconnect(*text[0]); }, share);
}

uint32_t qrvHostSharePath(const char* uncPath, char* path) {
  return call(
      [&](Texts text) -> std::uint32_t {
        if (path == nullptr) return kInvalidParameter;
        std::filesystem::path place;
        if (const Win32Error error = lab().sharePath(*text[0], place)) return error;
        return abi::write(path, kQrvFolderSize, utf8FromPath(place)) ? kDone : kBufferTooSmall;
      },
      uncPath);
}
