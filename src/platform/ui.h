#pragma once

#include <string>

namespace varnhold::platform {

enum class MessageIcon { Information, Exclamation, Critical };

/// What the program may ask of a person. In command-line mode the adapter writes to standard error and never
/// waits. Main thread.
class Ui {
 public:
  virtual ~Ui() = default;

  /// A modal box with an OK button.
  virtual void messageBox(const std::string& text, MessageIcon icon) = 0;
  /// The same in front of every other program, where the host has such boxes.
  virtual void systemModalBox(const std::string& text, MessageIcon icon) { messageBox(text, icon); }
};

}  // namespace varnhold::platform
