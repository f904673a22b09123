#include <gtest/gtest.h>

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

  const auto clock = makeClock();
  for (int tries = 0; tries < 1000 && files->read(proof).value_or("").empty(); ++tries) clock->sleep(10);
  EXPECT_EQ(files->read(proof), "done\r\n");
}

TEST(WindowsProcesses, SaysThatAFileIsNotThere) {
  const TemporaryFolder folder;
  EXPECT_EQ(makeProcesses()->shellExecute("open", folder / "missing.bat", ShowState::Hidden), 2);
}

}  // namespace
}  // namespace varnhold::platform::windows
