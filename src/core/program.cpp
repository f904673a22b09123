#include "core/program.h"

#include "platform/host_adapters.h"

namespace varnhold::core {

Host hostOf(platform::HostAdapters& adapters, platform::Ui& ui) {
  return {adapters.registry(),  adapters.services(),
          adapters.eventLog(),  adapters.files(),
          adapters.processes(), adapters.threads(),
          adapters.clock(),     adapters.environment(),
          adapters.libraries(), ui,
          adapters.desktop(),   adapters.accounts(),
          adapters.security(),  adapters.secur32(),
          adapters.heap()};
}

Program::Program(Host hostAdapters, std::string appTitle, store::Connection::StatementListener listener)
    : host(hostAdapters), AppTitle(std::move(appTitle)), gConn(std::move(listener)) {}

}  // namespace varnhold::core
