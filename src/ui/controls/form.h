#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/controls/component.h"
#include "ui/controls/constants.h"
#include "ui/controls/control.h"
#include "ui/controls/property.h"
#include "ui/controls/toolkit.h"

namespace varnhold::ui {

class CommandButton;
class MenuItem;
class Screen;

/// A form: a plain class with its controls as members and its handlers as methods, under their documented
/// names.
///
/// Its constructor sets the design (captions, texts, what is enabled), gives events their handlers, and
/// adopts the controls. Nothing is on the screen then. What it holds at the first load is its design.
///
/// Life: load (Form_Load), show (Form_Resize, Form_Activate, the focus to its first control), Form_Activate
/// again each time another form of the program that lay over it has gone away, unload (Form_QueryUnload,
/// Form_Unload). An unload puts the controls and the form's own properties back to the design; plain members
/// of the class stay as they are, so that results can be read afterwards.
///
/// A form that is not loaded is not loaded by touching it: call `Load` before setting a control of a form
/// that may not be loaded. What is set without that is gone at the next load. Main thread.
class Form : public Component {
 public:
  /// `screen` outlives the form. `name` is the form's documented name.
  Form(Screen& screen, std::string name);
  ~Form() override;

  /// The window's title.
  Property<std::string> Caption{*this};
  /// A picture of the program's own set, by name.
  Property<std::string> Icon{*this};
  Property<bool> Enabled{*this, true};
  Property<Pointer> MousePointer{*this, Pointer::Default};
  Property<ui::WindowState> WindowState{*this, ui::WindowState::Normal};
  /// Twips, 15 to a pixel at 100 %; 0 leaves the size to the view.
  Property<int> Width{*this}, Height{*this};
  Property<ui::BorderStyle> BorderStyle{*this, ui::BorderStyle::FixedDialog};
  Property<std::string> Tag{*this};

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] Screen& screen() const { return screen_; }
  [[nodiscard]] bool isLoaded() const { return loaded_; }
  /// It is shown; minimised counts.
  [[nodiscard]] bool Visible() const { return visible_; }

  /// Form_Load, unless the form is loaded.
  void Load();
  /// Loads the form where it is not, and shows it modeless, in front of `owner`. Shown already, it comes to
  /// the front. Error 401 while a modal form is shown.
  void Show(Form* owner = nullptr);
  /// Loads the form where it is not, shows it, and returns when it is hidden or unloaded. Until then the user
  /// can't reach any other form. Error 400 where it is shown already.
  void ShowModal(Form* owner = nullptr);
  /// Takes it off the screen; it stays loaded. Nothing where it is not shown.
  void Hide();
  /// Asks Form_QueryUnload, then Form_Unload. False where the form refused. Nothing where it is not loaded.
  bool Unload(UnloadMode mode = UnloadMode::FormCode);
  /// Paints now.
  void Refresh();
  /// Brings it to the front of the screen.
  void ZOrder();
  /// Shows a pop-up menu at the pointer: its own Click first, then, where the user chose an entry, that
  /// entry's.
  void PopupMenu(MenuItem& menu);

  /// The control that has the focus, or nothing; nothing too while that control is disabled or not visible.
  [[nodiscard]] Control* ActiveControl() const;

  /// For views: the controls in tab order, menus and timers among them.
  [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
  /// The control of this name, the first one of an array; nothing where there is none.
  [[nodiscard]] Control* controlNamed(std::string_view name) const;
  /// The entries that stand in `menu`; with nothing, the menu bar and the pop-up menus.
  [[nodiscard]] std::vector<MenuItem*> menuItems(const MenuItem* menu = nullptr) const;
  /// The menu that is popped up, or nothing.
  [[nodiscard]] const MenuItem* poppedUp() const { return poppedUp_; }
  /// The first control behind `control` in tab order that can have the focus; nothing where there is none.
  [[nodiscard]] Control* focusableBehind(const Control& control) const;
  /// True when the user can act on the form: it is shown, enabled, and no modal form keeps it from the user.
  [[nodiscard]] bool acceptsInput() const;

  /// The user closed the window by its frame.
  void userClose();
  /// The user changed the window's size or state.
  void userResize(int width, int height, ui::WindowState state);
  /// True when the form has its own use for the key, so that the view must not let the focused widget have
  /// it: a menu's shortcut, Enter for a button, Escape for the cancelling button.
  [[nodiscard]] bool usesKey(int key, int modifiers) const;
  /// The user pressed a key anywhere on the form. The entry with that shortcut is chosen; without one,
  /// Form_KeyDown, and, unless that set the key to 0, Enter and Escape press their buttons.
  void userKeyDown(int key, int modifiers = kNoModifier);
  /// Alt and a letter: its owner answers, no label where another has it; of several the next gets the focus.
  void userMnemonic(char32_t letter);

  /// Moves the focus, with its events. For controls.
  void moveFocus(Control& control);

 protected:
  struct NamedControl {
    std::string_view name;
    Control& control;
  };

  /// Takes the controls for the form's own, in tab order. Called by the form's constructor.
  void adopt(std::initializer_list<NamedControl> controls);
  /// The same for controls that stand in `container`, itself adopted.
  void adopt(Control& container, std::initializer_list<NamedControl> controls);

  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  /// The form stays when the handler sets `cancel` to anything but 0.
  virtual void Form_QueryUnload(int& cancel, UnloadMode mode) { (void)cancel, (void)mode; }
  virtual void Form_Unload() {}
  virtual void Form_Resize() {}
  /// The handler uses the key up by setting it to 0.
  virtual void Form_KeyDown(int& key, int modifiers) { (void)key, (void)modifiers; }

  void changed(const PropertyBase& property) override;
  void runHandler(const std::function<void()>& handler) const override;

 private:
  friend class FormStack;

  void keepAllDesign();
  void restoreAllDesign();
  void tellControlsOfState();
  void focusFirst();
  [[nodiscard]] static bool canFocus(const Control& control);
  [[nodiscard]] MenuItem* menuItemFor(int key, int modifiers) const;
  [[nodiscard]] CommandButton* buttonFor(int key) const;

  Screen& screen_;
  std::string name_;
  std::vector<Control*> controls_;
  Control* active_ = nullptr;
  const MenuItem* poppedUp_ = nullptr;

  // What the form stack keeps of the form.
  std::shared_ptr<FormWindow> window_;
  Form* owner_ = nullptr;
  bool designKept_ = false;
  bool loaded_ = false;
  bool visible_ = false;
  bool modal_ = false;
  bool unloading_ = false;
};

}  // namespace varnhold::ui
