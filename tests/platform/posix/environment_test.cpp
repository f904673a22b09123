#include "platform/environment.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "base/text.h"
#include "platform/posix/adapters.h"
#include "tests/platform/posix/child_process.h"
#include "tests/platform/posix/standin.h"
#include "tests/platform/posix/temporary_folder.h"

namespace varnhold::platform::posix {
namespace {

class PosixEnvironment : public ::testing::Test {
 protected:
  std::unique_ptr<Environment> environment(std::vector<std::string> arguments = {}) {
    return makeEnvironment(home_.path(), std::move(arguments), paths_);
  }

  TemporaryFolder home_;
  std::unique_ptr<CompanionLibrary> standin_ = makeStandin();
  PathResolver paths_{*standin_};
};

TEST_F(PosixEnvironment, JoinsTheArgumentsByOneBlank) {
  EXPECT_EQ(environment()->commandLine(), "");
  EXPECT_EQ(environment({"-I"})->commandLine(), "-I");
  EXPECT_EQ(environment({"-I", "-N:HOST 1", "", "-P:C:\\Program Files"})->commandLine(),
            "-I -N:HOST 1  -P:C:\\Program Files");
  EXPECT_EQ(environment({"-I", "-I"})->commandLine(), "-I -I");
}

TEST_F(PosixEnvironment, HasItsHomeAsTheProgramsFolder) {
  EXPECT_EQ(environment()->programFolder(), home_.path());
}

TEST_F(PosixEnvironment, GoesToAFolderInAnySpelling) {
  std::filesystem::create_directory(home_ / "RemoteInstaller");
  EXPECT_EQ(inChild([&] {
              const bool went = environment()->setCurrentDirectory(home_.path() + "\\REMOTEINSTALLER");
              return went && std::filesystem::current_path().filename() == "RemoteInstaller" ? 0 : 1;
            }),
            0);
}

TEST_F(PosixEnvironment, NamesTheComputerByItsHostNameUpToTheFirstDot) {
  std::array<char, 256> host{};
  ASSERT_EQ(::gethostname(host.data(), host.size() - 1), 0);
  EXPECT_EQ(environment()->getComputerName(), toUpper(split(host.data(), '.').front()));
}

TEST_F(PosixEnvironment, CountsAsTheNtLineVersion6) {
  const auto version = environment()->getVersionEx();
  EXPECT_EQ(version.majorVersion, 6u);
  EXPECT_EQ(version.platformId, 2u);
}

}  // namespace
}  // namespace varnhold::platform::posix
