#include "ui/wx/menus.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "ui/controls/form.h"
#include "ui/wx/acts.h"
#include "ui/wx/popup_place.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_text.h"

namespace varnhold::ui::wx {
namespace {

constexpr int kFirstId = wxID_HIGHEST + 1;

wxString labelOf(const MenuItem& item) {
  auto label = shown(item.Caption);
  if (!item.Shortcut.get().empty()) label += "\t" + shown(item.Shortcut);
  return label;
}

/// Shows on the entries of a menu what may change without another entry coming or going.
void showValues(wxMenu& menu, const std::function<MenuItem*(int)>& itemOf) {
  for (auto* entry : menu.GetMenuItems()) {
    const auto* item = itemOf(entry->GetId());
    if (item == nullptr || entry->IsSeparator()) continue;
    auto* subMenu = entry->GetSubMenu();
    const auto label = subMenu == nullptr ? labelOf(*item) : shown(item->Caption);
    if (entry->GetItemLabel() != label) entry->SetItemLabel(label);
    if (entry->IsEnabled() != item->Enabled.get()) entry->Enable(item->Enabled);
    if (entry->IsCheckable() && entry->IsChecked() != item->Checked.get()) entry->Check(item->Checked);
    if (subMenu != nullptr) showValues(*subMenu, itemOf);
  }
}

}  // namespace

class FormMenus::EntryView : public ControlView {
 public:
  explicit EntryView(FormMenus& menus) : menus_(menus) {}

  void sync() override { menus_.entryChanged(); }

 private:
  FormMenus& menus_;
};

struct FormMenus::BarMenu {
  MenuItem* item;
  wxMenu* menu;
  std::string shape;
  bool inBar;
};

FormMenus::FormMenus(Form& form, wxTopLevelWindow& frame) : form_(form), frame_(frame) {
  for (auto* control : form.controls()) {
    auto* item = dynamic_cast<MenuItem*>(control);
    if (item == nullptr) continue;
    views_.push_back(std::make_unique<EntryView>(*this));
    item->attach(*views_.back());
  }
  if (hasBar(form)) makeBar();
}

FormMenus::~FormMenus() {
  for (const auto& menu : barMenus_) {
    if (!menu.inBar) delete menu.menu;
  }
}

bool FormMenus::hasBar(const Form& form) {
  const auto items = form.menuItems();
  return std::any_of(items.begin(), items.end(), [](const MenuItem* item) { return item->Visible.get(); });
}

void FormMenus::makeBar() {
  bar_ = new wxMenuBar;
  for (auto* item : form_.menuItems()) barMenus_.push_back({item, new wxMenu, {}, false});
  static_cast<wxFrame&>(frame_).SetMenuBar(bar_);
  showChanges();
  frame_.Bind(wxEVT_MENU_OPEN, &FormMenus::opening, this);
  frame_.Bind(wxEVT_MENU, [this](wxCommandEvent& event) { chosen(event.GetId()); });
}

int FormMenus::idOf(const MenuItem& item) const {
  const auto& controls = form_.controls();
  return kFirstId + static_cast<int>(std::find(controls.begin(), controls.end(), &item) - controls.begin());
}

MenuItem* FormMenus::itemOf(int id) const {
  const auto place = static_cast<std::size_t>(id - kFirstId);
  return place < form_.controls().size() ? dynamic_cast<MenuItem*>(form_.controls()[place]) : nullptr;
}

bool FormMenus::isCheckable(const MenuItem& item) {
  // An entry has room for a tick from its first tick on: some hosts draw an empty box there.
  auto& checkable = checkable_[&item];
  checkable = checkable || item.Checked;
  return checkable;
}

std::string FormMenus::shapeOf(const MenuItem& menu) {
  std::string shape;
  for (const auto* item : menu.Items()) {
    if (!item->Visible) continue;
    shape += std::to_string(idOf(*item)) + (isCheckable(*item) ? "c" : "") + "(" + shapeOf(*item) + ")";
  }
  return shape;
}

void FormMenus::append(wxMenu& menu, MenuItem& item) {
  if (item.isSeparator()) {
    menu.AppendSeparator();
    return;
  }
  if (item.Items().empty()) {
    menu.Append(idOf(item), labelOf(item), wxString(), isCheckable(item) ? wxITEM_CHECK : wxITEM_NORMAL);
  } else {
    auto* subMenu = new wxMenu;
    fill(*subMenu, item);
    opens_[subMenu] = &item;
    menu.Append(idOf(item), shown(item.Caption), subMenu);
  }
}

void FormMenus::fill(wxMenu& menu, const MenuItem& of) {
  for (auto* item : of.Items()) {
    if (item->Visible) append(menu, *item);
  }
  showValues(menu, [this](int id) { return itemOf(id); });
}

void FormMenus::entryChanged() {
  if (bar_ == nullptr || std::exchange(changePending_, true)) return;
  soon([this, life = std::weak_ptr<int>(life_)] {
    if (!life.expired() && changePending_) showChanges();
  });
}

void FormMenus::showChanges() {
  changePending_ = false;
  for (auto& menu : barMenus_) showMenu(menu);
  showBar();
}

void FormMenus::showMenu(BarMenu& menu) {
  opens_[menu.menu] = menu.item;
  auto shape = shapeOf(*menu.item);
  if (shape == menu.shape) {
    showValues(*menu.menu, [this](int id) { return itemOf(id); });
    return;
  }
  menu.shape = std::move(shape);
  for (auto* entry : menu.menu->GetMenuItems()) opens_.erase(entry->GetSubMenu());
  while (menu.menu->GetMenuItemCount() > 0) menu.menu->Destroy(menu.menu->FindItemByPosition(0));
  fill(*menu.menu, *menu.item);
}

void FormMenus::showBar() {
  std::size_t place = 0;
  for (auto& menu : barMenus_) {
    const bool wanted = menu.item->Visible;
    const auto caption = shown(menu.item->Caption);
    if (menu.inBar && !wanted) bar_->Remove(place);
    if (!menu.inBar && wanted) bar_->Insert(place, menu.menu, caption);
    menu.inBar = wanted;
    if (!wanted) continue;
    if (bar_->GetMenuLabel(place) != caption) bar_->SetMenuLabel(place, caption);
    bar_->EnableTop(place, menu.item->Enabled);
    ++place;
  }
}

void FormMenus::opening(wxMenuEvent& event) {
  event.Skip();
  const auto found = opens_.find(event.GetMenu());
  if (found == opens_.end()) return;
  // At once, not from the event loop: what the handler decides about the entries must be there before the
  // menu is drawn.
  const auto life = std::weak_ptr<int>(life_);
  found->second->userClick();
  if (!life.expired() && changePending_) showChanges();
}

void FormMenus::chosen(int id) {
  auto* item = itemOf(id);
  if (item == nullptr) return;
  acts().post([this, life = std::weak_ptr<int>(life_), item] {
    if (life.expired()) return;
    item->userClick();
    // The toolkit has turned the entry's tick over by itself.
    if (!life.expired()) entryChanged();
  });
}

MenuItem* FormMenus::popUp(const MenuItem& menu) {
  wxMenu popped;
  const auto barMenusOnly = opens_;
  fill(popped, menu);
  const auto life = std::weak_ptr<int>(life_);
  const auto place = PopUpPlace::current();
  const auto inFrame = place ? frame_.ScreenToClient(*place) : wxDefaultPosition;
  const int id = frame_.GetPopupMenuSelectionFromUser(popped, inFrame);
  if (life.expired()) return nullptr;
  opens_ = barMenusOnly;
  return id == wxID_NONE ? nullptr : itemOf(id);
}

}  // namespace varnhold::ui::wx
