#pragma once

#include <deque>
#include <functional>

/// What users do, between the toolkit's own call in which it is noticed and the event loop, from which it is
/// handed to the controls. Main thread.
namespace varnhold::ui::wx {

/// The queue of acts. One line for all widgets, so that acts arrive in the order in which they were done.
class Acts {
 public:
  /// Runs `act` on a later turn of the event loop, whichever loop that is by then.
  void post(std::function<void()> act);

  /// While one of these lives, acts wait, also under an event loop.
  class Hold {
   public:
    explicit Hold(Acts& acts) : acts_(acts) { ++acts_.held_; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold();

   private:
    Acts& acts_;
  };

 private:
  void scheduleOne();
  void runOne();

  std::deque<std::function<void()>> waiting_;
  int held_ = 0;
  std::size_t missed_ = 0;
};

/// Runs what is no user's act, such as laying out, on the next turn of the event loop, held acts or not.
void soon(std::function<void()> work);

/// The queue of the running application.
[[nodiscard]] Acts& acts();

}  // namespace varnhold::ui::wx
