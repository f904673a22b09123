#include <gtest/gtest.h>

#include <string>

#include "platform/windows/adapters.h"
#include "tests/platform/windows/temporary_folder.h"

namespace varnhold::platform::windows {
namespace {

TEST(WindowsProcesses, OpensABatchFile) {
  const TemporaryFolder folder;
  const auto files = makeFiles();
  const auto batch = folder / "a batch.bat";
  const auto proof = folder / "proof.txt";
  ASSERT_EQ(files->createNew(batch, "@echo done> \"" + proof + "\"\r\n", FileAccess::OwnerOnly),
            FileOutcome::Done);

  EXPECT_GT(makeProcesses()->shellExecute("open", batch, ShowState::Hidden), 32);

  const std::string done = "done\r\n";
  const auto clock = makeClock();
  // The batch file's output grows piece by piece.
  for (int tries = 0; tries < 1000 && files->read(proof) != done; ++tries) clock->sleep(10);
  EXPECT_EQ(files->read(proof), done);
}

TEST(WindowsProcesses, SaysThatAFileIsNotThere) {
  const TemporaryFolder folder;
  EXPECT_EQ(makeProcesses()->shellExecute("open", folder / "missing.bat", ShowState::Hidden), 2);
}

}  // namespace
}  // namespace varnhold::platform::windows
