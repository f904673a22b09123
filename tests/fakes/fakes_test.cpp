// The fakes keep the contracts of their ports as the real adapters do.
#include "tests/contract/clock_contract.h"
#include "tests/contract/environment_contract.h"
#include "tests/contract/files_contract.h"
#include "tests/contract/registry_contract.h"
#include "tests/fakes/fake_host.h"

namespace varnhold::contract {
namespace {

struct FakeRegistryHost {
  fakes::FakeHost fake;
  platform::Registry& registry() { return fake.registry; }
  std::string key() { return R"(SOFTWARE\Contract)"; }
};

struct FakeFilesHost {
  fakes::FakeHost fake;
  FakeFilesHost() { fake.files.makeFolder(folder()); }
  platform::Files& files() { return fake.files; }
  std::string folder() { return R"(C:\DATA)"; }
  void makeFolder(const std::string& name) { fake.files.makeFolder(folder() + "\\" + name); }
};

struct FakeClockHost {
  fakes::FakeHost fake;
  platform::Clock& clock() { return fake.clock; }
  std::uint64_t elapsedMs() { return fake.clock.sleptMs; }
};

struct FakeEnvironmentHost {
  fakes::FakeHost fake;
  platform::Environment& environment() { return fake.environment; }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, RegistryContract, FakeRegistryHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, FilesContract, FakeFilesHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, ClockContract, FakeClockHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, EnvironmentContract, FakeEnvironmentHost);

}  // namespace
}  // namespace varnhold::contract
