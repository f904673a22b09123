#include "ui/wx/item_entries.h"

#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {

bool showEntries(wxItemContainer& widget, const ItemBox& box) {
  wxArrayString wanted;
  for (int i = 0; i < box.ListCount(); ++i) wanted.Add(shown(box.List(i)));
  if (widget.GetStrings() == wanted) return false;
  widget.Set(wanted);
  return true;
}

}  // namespace varnhold::ui::wx
