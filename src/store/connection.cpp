#include "store/connection.h"

#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "store/session.h"

namespace varnhold::store {

Connection::Connection(StatementListener listener) : listener_(std::move(listener)) {}

Connection::~Connection() = default;

void Connection::Open(const std::string& dataSource, const std::string& user, const std::string& password,
                      int) {
  Close();
  try {
    session_ = openOdbcSession(dataSource, user, password, listener_);
  } catch (const RuntimeError& error) {
    // A driver may repeat what it was given.
    if (password.empty()) throw;
    throw RuntimeError(error.number(), replaceAll(error.description(), password, "***"));
  }
}

void Connection::Close() noexcept {
  session_.reset();
}

bool Connection::isOpen() const noexcept {
  return session_ != nullptr;
}

Engine Connection::engine() {
  return session().engine();
}

Connection::Session& Connection::session() {
  if (!session_) throw RuntimeError(kObjectClosed, "The connection to the inventory is closed.");
  return *session_;
}

}  // namespace varnhold::store
