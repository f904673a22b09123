#include "core/program.h"

namespace varnhold::core {

Program::Program(Host hostAdapters, std::string appTitle, store::Connection::StatementListener listener)
    : host(hostAdapters), AppTitle(std::move(appTitle)), gConn(std::move(listener)) {}

}  // namespace varnhold::core
