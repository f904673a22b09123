#pragma once

#include <array>

#include "platform/threads.h"
#include "ui/controls/form.h"
#include "ui/controls/label.h"

namespace varnhold::core {
struct Program;
}

namespace varnhold::console {

/// Says what the program waits for. Each time it is activated it ends the console's background threads and
/// goes away by itself.
class frmWait : public ui::Form {
 public:
  frmWait(core::Program& program, ui::Screen& screen);

  /// Whether the threads get up to 75 rounds of 200 milliseconds to end by themselves.
  bool WaitForThreads = false;

  ui::Label lblTitle;

 private:
  void Form_Activate() override;

  [[nodiscard]] std::array<platform::ThreadHandle*, 4> threads() const;
  void waitForThreads();

  core::Program& program_;
};

}  // namespace varnhold::console
