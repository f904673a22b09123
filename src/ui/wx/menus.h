#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ui/controls/menu_item.h"

class wxMenu;
class wxMenuBar;
class wxMenuEvent;
class wxTopLevelWindow;

namespace varnhold::ui::wx {

/// The menus of a form: its menu bar and what is popped up.
class FormMenus {
 public:
  /// Makes the form's menu bar on `frame`, which is a wxFrame where the form has one.
  FormMenus(Form& form, wxTopLevelWindow& frame);
  ~FormMenus();
  FormMenus(const FormMenus&) = delete;
  FormMenus& operator=(const FormMenus&) = delete;

  /// True when the form has a menu bar.
  [[nodiscard]] static bool hasBar(const Form& form);
  /// Shows a menu at the pointer and waits; the chosen entry, or nothing.
  [[nodiscard]] MenuItem* popUp(const MenuItem& menu);

 private:
  class EntryView;
  struct BarMenu;

  void makeBar();
  void entryChanged();
  void showChanges();
  void showMenu(BarMenu& menu);
  void showBar();
  void opening(wxMenuEvent& event);
  void chosen(int id);
  void fill(wxMenu& menu, const MenuItem& of);
  void append(wxMenu& menu, MenuItem& item);
  [[nodiscard]] bool isCheckable(const MenuItem& item);
  [[nodiscard]] std::string shapeOf(const MenuItem& menu);
  [[nodiscard]] int idOf(const MenuItem& item) const;
  [[nodiscard]] MenuItem* itemOf(int id) const;

  Form& form_;
  wxTopLevelWindow& frame_;
  std::vector<std::unique_ptr<EntryView>> views_;
  wxMenuBar* bar_ = nullptr;
  std::vector<BarMenu> barMenus_;
  std::map<const wxMenu*, MenuItem*> opens_;
  std::map<const MenuItem*, bool> checkable_;
  bool changePending_ = false;
  std::shared_ptr<int> life_ = std::make_shared<int>();
};

}  // namespace varnhold::ui::wx
