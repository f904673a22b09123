#include "tests/store/inventory_contract.h"
#include "tests/store/sqlite_data_sources.h"

namespace varnhold::store {

const EngineUnderTest kEngineUnderTest{Engine::Sqlite, VARNHOLD_STORE_LETTERS};

namespace {
[[maybe_unused]] const auto* const kDataSources = testing::AddGlobalTestEnvironment(new SqliteDataSources);
}  // namespace

}  // namespace varnhold::store
