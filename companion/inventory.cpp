#include "companion/inventory.h"

namespace varnhold::companion {

void Inventory::ensureOpen() {
  if (!connection_.isOpen()) connection_.Open("qrvdb", "", "");
}

void Inventory::open() {
  const std::lock_guard turn(mutex_);
  ensureOpen();
}

void Inventory::close() {
  const std::lock_guard turn(mutex_);
  connection_.Close();
}

void Inventory::use(const std::function<void(store::Connection&)>& work, const host::MustStop& mustStop) {
  const std::lock_guard turn(mutex_);
  if (mustStop()) return;
  try {
    ensureOpen();
    work(connection_);
  } catch (...) {
    connection_.Close();
    throw;
  }
}

Inventory& ownInventory() {
  static auto* own = new Inventory;
  return *own;
}

}  // namespace varnhold::companion
