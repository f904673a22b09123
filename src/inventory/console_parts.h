#pragma once

#include <string>

#include "ui/controls/form.h"
#include "ui/controls/image.h"
#include "ui/controls/list_view.h"
#include "ui/controls/tree_view.h"

namespace varnhold::core {
struct Program;
}

namespace varnhold::inventory {

/// What the forms of this folder use of the console. All of it outlives them.
struct ConsoleParts {
  ui::Form& console;  ///< the program's `gMainForm`
  ui::ListView& lvListView;
  ui::TreeView& tvTreeView;
  ui::ImageList& imlIcons;
};

/// A form of the console whose key F1 opens the help.
class ConsoleForm : public ui::Form {
 protected:
  ConsoleForm(core::Program& program, ui::Screen& screen, std::string name, ConsoleParts parts);

  void Form_KeyDown(int& key, int modifiers) override;

  core::Program& program_;
  const ConsoleParts parts_;
};

}  // namespace varnhold::inventory
