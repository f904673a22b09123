#pragma once

namespace varnhold::bench {

/// Fills the empty inventory behind the data source `qrvdb`: so many computers, as many agent rows in no
/// order of names, a third of them without a port, and so many groups of ten computers each. Raises the
/// errors of the store.
void fillInventory(int computers, int groups = 0);

}  // namespace varnhold::bench
