#include "tests/companion/library_home.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "companion/paths.h"

namespace varnhold::companion::test {
namespace {

constexpr auto kHive = platform::RegistryHive::LocalMachine;
constexpr const char* kKey = R"(SOFTWARE\Kelmont Works\Varnhold\Manager)";

}  // namespace

LibraryHome::LibraryHome() {
  useHome(lab_.installPath());
  host_ = platform::makeHostAdapters({});
  EXPECT_EQ(host_->registry().createKey(kHive, kKey), platform::RegistryOutcome::Done);
  set("INSTALLPATH", utf8FromPath(lab_.installPath()));
}

LibraryHome::~LibraryHome() {
  for (const auto& [name, value] : earlier_)
    EXPECT_EQ(host_->registry().set(kHive, kKey, name, value), platform::RegistryOutcome::Done);
}

void LibraryHome::set(const std::string& name, const std::string& text) {
  if (!earlier_.contains(name)) {
    platform::RegistryValue& before = earlier_[name] = {platform::kRegText, std::string(1, '\0')};
    static_cast<void>(host_->registry().query(kHive, kKey, name, 1024, before));
  }
  const platform::RegistryValue value{platform::kRegText, text + '\0'};
  EXPECT_EQ(host_->registry().set(kHive, kKey, name, value), platform::RegistryOutcome::Done);
}

void LibraryHome::setVersion(const std::string& version) {
  set("VHVersion", version);
}

std::uint32_t LibraryHome::finish(platform::ThreadHandle thread) {
  constexpr int kPatience = 20'000;
  std::uint32_t code = platform::kStillActive;
  for (int waited = 0; code == platform::kStillActive && waited < kPatience; ++waited) {
    EXPECT_TRUE(host_->threads().getExitCodeThread(thread, code));
    if (code == platform::kStillActive) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  host_->threads().closeHandle(thread);
  return code;
}

std::string LibraryHome::libraryPath() const {
  return utf8FromPath(lab_.installPath()) + R"(\RemoteInstaller\remins)";
}

}  // namespace varnhold::companion::test
