#include "companion/include/qrvhost.h"

#include "companion/abi.h"
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

ShareConnections& connections() {
  static auto* own = new ShareConnections;
  return *own;
}

/// Calls `action` with the arguments as text; kInvalidParameter when one is null or too long, or the call
/// fails.
template <typename Action, typename... Arguments>
std::uint32_t call(Action action, const Arguments*... arguments) noexcept {
  return abi::guarded<std::uint32_t>(kInvalidParameter, [&]() -> std::uint32_t {
    const std::optional<std::string> texts[] = {abi::text(arguments)...};
    for (const auto& text : texts)
      if (!text) return kInvalidParameter;
    return action(texts);
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

uint32_t qrvHostOpenEventLog(const char* machine, const char* log) {
  return call([](Texts text) { return openEventLog(lab(), *text[0], *text[1]); }, machine, log);
}

uint32_t qrvHostConnectShare(const char* share, const char* account, const char* password) {
  return call([](Texts text) { return connections().connect(lab(), *text[0], *text[1], *text[2]); }, share,
              account, password);
}

uint32_t qrvHostDisconnectShare(const char* share) {
  return call([](Texts text) { return connections().disconnect(*text[0]); }, share);
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
