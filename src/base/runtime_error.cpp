#include "base/runtime_error.h"

namespace varnhold {

RuntimeError::RuntimeError(std::int32_t number, std::string description)
    : number_(number), description_(std::move(description)) {}

bool ResumeNext::step(const std::function<void()>& statement) const {
  try {
    statement();
    return true;
  } catch (const RuntimeError& error) {
    if (handler_) handler_(error);
    return false;
  }
}

}  // namespace varnhold
