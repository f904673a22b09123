#include "companion/inventory.h"

namespace varnhold::companion {

/// Has the connection for itself.
class Inventory::Turn {
 public:
  explicit Turn(Inventory& inventory) : mutex_(*inventory.mutex_) {
    if (mutex_.lock()) return;
    // A thread was ended in the middle of its work: the driver may wait for it for ever. Its connection is
    // not touched any more.
    static_cast<void>(inventory.connection_.release());
    inventory.connection_ = std::make_unique<store::Connection>();
  }
  ~Turn() { mutex_.unlock(); }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  host::ThreadMutex& mutex_;
};

void Inventory::ensureOpen() {
  if (!connection_->isOpen()) connection_->Open("qrvdb", "", "");
}

void Inventory::open() {
  const Turn turn(*this);
  ensureOpen();
}

void Inventory::close() {
  const Turn turn(*this);
  connection_->Close();
}

void Inventory::use(const std::function<void(store::Connection&)>& work, const std::stop_token& stop) {
  const Turn turn(*this);
  if (stop.stop_requested()) return;
  try {
    ensureOpen();
    work(*connection_);
  } catch (...) {
    connection_->Close();
    throw;
  }
}

Inventory& ownInventory() {
  static auto* own = new Inventory;
  return *own;
}

}  // namespace varnhold::companion
