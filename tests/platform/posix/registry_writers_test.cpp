// Two processes that write the registry file at once, and one that is killed while it writes.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "platform/formats/registry_file.h"
#include "platform/posix/adapters.h"
#include "platform/posix/atomic_file.h"
#include "tests/platform/posix/child_process.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform::posix {
namespace {

constexpr auto kHive = RegistryHive::LocalMachine;
constexpr auto kSoftware = "SOFTWARE";

bool setNumber(Registry& registry, const std::string& name) {
  return registry.set(kHive, kSoftware, name, {kRegNumber, std::string(4, '\1')}) == RegistryOutcome::Done;
}

bool hasNumber(const RegistryFile& file, const std::string& name) {
  return file.find(std::string("HKEY_LOCAL_MACHINE\\") + kSoftware, name) != nullptr;
}

std::string nameOf(const std::string& writer, int number) {
  return writer + " " + std::to_string(number);
}

RegistryFile parsed(const std::string& path) {
  RegistryFileError error;
  auto file = RegistryFile::parse(contentOf(path), error);
  EXPECT_TRUE(file) << "line " << error.line << ": " << error.what;
  return file ? std::move(*file) : RegistryFile{};
}

TEST(RegistryWriters, TwoAtOnceLoseNoValue) {
  constexpr int kValues = 200;
  const TemporaryFolder home;
  ASSERT_EQ(makeRegistry(home.path())->createKey(kHive, kSoftware), RegistryOutcome::Done);
  const auto write = [&](const std::string& writer) {
    return startChild([&home, writer] {
      const auto registry = makeRegistry(home.path(), std::chrono::minutes(1));
      for (int i = 0; i < kValues; ++i) {
        if (!setNumber(*registry, nameOf(writer, i))) return 1;
      }
      return 0;
    });
  };
  const auto first = write("first"), second = write("second");
  EXPECT_EQ(waitForChild(first), 0);
  EXPECT_EQ(waitForChild(second), 0);
  const auto file = parsed(home / "registry.reg");
  for (const char* writer : {"first", "second"}) {
    for (int i = 0; i < kValues; ++i) EXPECT_TRUE(hasNumber(file, nameOf(writer, i))) << writer << i;
  }
}

/// A writer of one value after the other, and how far it says it came.
class KilledWriter {
 public:
  KilledWriter(const std::string& home, const std::string& name) {
    EXPECT_EQ(::pipe(ends_.data()), 0);
    process_ = startChild([&] {
      const auto registry = makeRegistry(home);
      for (int i = 0; setNumber(*registry, nameOf(name, i)); ++i) {
        if (::write(ends_[1], ".", 1) != 1) return 1;
      }
      return 2;
    });
    ::close(ends_[1]);
  }
  ~KilledWriter() { ::close(ends_[0]); }

  /// Kills it and gives how many values it had been told were written.
  std::size_t kill() {
    ::kill(process_, SIGKILL);
    static_cast<void>(waitForChild(process_));
    return readAll(ends_[0]).value_or("").size();
  }

 private:
  std::array<int, 2> ends_{};
  pid_t process_ = 0;
};

TEST(RegistryWriters, OneKilledAtAnyMomentLosesNothingThatWasWritten) {
  constexpr int kRounds = 50;
  const TemporaryFolder home;
  ASSERT_EQ(makeRegistry(home.path())->createKey(kHive, kSoftware), RegistryOutcome::Done);
  std::minstd_rand random(std::random_device{}());
  std::uniform_int_distribution<int> delayUs(500, 15'000);
  std::vector<std::string> written;
  for (int round = 0; round < kRounds; ++round) {
    const auto writer = "round " + std::to_string(round);
    KilledWriter child(home.path(), writer);
    std::this_thread::sleep_for(std::chrono::microseconds(delayUs(random)));
    const auto count = static_cast<int>(child.kill());
    for (int i = 0; i < count; ++i) written.push_back(nameOf(writer, i));
    const auto file = parsed(home / "registry.reg");
    for (const auto& name : written) ASSERT_TRUE(hasNumber(file, name)) << name << " after round " << round;
  }
  EXPECT_FALSE(written.empty());
  EXPECT_TRUE(setNumber(*makeRegistry(home.path()), "after all"));
}

}  // namespace
}  // namespace varnhold::platform::posix
