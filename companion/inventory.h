#pragma once

#include <functional>
#include <mutex>

#include "companion/host.h"
#include "store/connection.h"

namespace varnhold::companion {

/// The library's own connection to the inventory, which its threads share: one at a time works with it.
/// Opened by `open` or when it is first needed, and again after an error or a `close`. Any thread.
class Inventory {
 public:
  /// Raises what `Connection::Open` raises.
  void open();
  /// Waits for whoever works with it.
  void close();
  /// Works with the open connection. Raises what `open` and `work` raise, with the connection closed. Once it
  /// must stop nothing is opened or done: whoever ended the work may want the inventory for himself.
  void use(
      const std::function<void(store::Connection&)>& work,
      const host::MustStop& mustStop = [] { return false; });

 private:
  void ensureOpen();

  std::mutex mutex_;
  store::Connection connection_;
};

/// The one of this process. Never destroyed: the driver may be gone before this library is.
[[nodiscard]] Inventory& ownInventory();

}  // namespace varnhold::companion
