#include <cstdio>

#include "platform/posix/adapters.h"

namespace varnhold::platform::posix {
namespace {

class UnattendedUi : public Ui {
 public:
  void messageBox(const std::string& text, MessageIcon) override {
    std::fputs((text + "\n").c_str(), stderr);
  }
};

}  // namespace

std::unique_ptr<Ui> makeUnattendedUi() {
  return std::make_unique<UnattendedUi>();
}

}  // namespace varnhold::platform::posix
