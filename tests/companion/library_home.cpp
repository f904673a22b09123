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
  earlier_ = {platform::kRegText, std::string(1, '\0')};
  static_cast<void>(host_->registry().query(kHive, kKey, "INSTALLPATH", 1024, earlier_));
  setInstallPath({platform::kRegText, utf8FromPath(lab_.installPath()) + '\0'});
}

LibraryHome::~LibraryHome() {
  setInstallPath(earlier_);
}

void LibraryHome::setInstallPath(const platform::RegistryValue& value) {
  EXPECT_EQ(host_->registry().set(kHive, kKey, "INSTALLPATH", value), platform::RegistryOutcome::Done);
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
