#pragma once

#include <exception>
#include <functional>
#include <utility>
#include <vector>

namespace varnhold::companion {

/// What must be done to leave a computer as it was before a job. Unless the job's work is kept, it is done
/// when the object goes, last change first.
class TakeBack {
 public:
  TakeBack() = default;
  ~TakeBack() {
    for (; !undo_.empty(); undo_.pop_back()) undoLast();
  }
  TakeBack(const TakeBack&) = delete;
  TakeBack& operator=(const TakeBack&) = delete;

  /// What `undo` cannot undo it leaves; an error that it raises does not keep the others from being undone.
  void add(std::function<void()> undo) { undo_.push_back(std::move(undo)); }
  void keep() { undo_.clear(); }

 private:
  void undoLast() noexcept {
    try {
      undo_.back()();
    } catch (const std::exception&) {
      return;
    }
  }

  std::vector<std::function<void()>> undo_;
};

}  // namespace varnhold::companion
