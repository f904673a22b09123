#pragma once

#include <windows.h>

// Needs the header above.
#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

/// Another process's windows, seen and used by window messages alone, as a screen reader or a script does.
namespace varnhold::windows_test {

/// Asks every 50 ms until `look` gives true; false when it has not within the time.
[[nodiscard]] bool waitFor(const std::function<bool()>& look, unsigned seconds = 60);

/// The visible window of that process with exactly this title, or null.
[[nodiscard]] HWND windowOf(DWORD process, const std::wstring& title);
/// Whether that process shows any window. Asks nothing of it: it may be too busy to answer.
[[nodiscard]] bool showsWindow(DWORD process);
/// All visible children, in the order of the focus; or those of that window class.
[[nodiscard]] std::vector<HWND> childrenOf(HWND window);
[[nodiscard]] std::vector<HWND> childrenOf(HWND window, const std::wstring& windowClass);
/// The first visible child of that window class, by its text in one line where one is given, or null.
[[nodiscard]] HWND childOf(HWND window, const std::wstring& windowClass, const std::wstring& text = L"*");
[[nodiscard]] std::wstring textOf(HWND window);
/// As a person reads it: without mnemonic and key, and in one line, however it was broken.
[[nodiscard]] std::wstring captionOf(HWND window);
[[nodiscard]] std::wstring classOf(HWND window);
/// In place of what the box holds.
void enterText(HWND box, const std::wstring& text);
/// Of the buttons that are on or off.
[[nodiscard]] bool isChecked(HWND button);

/// A native list view (SysListView32) of another process.
class NativeList {
 public:
  explicit NativeList(HWND list) : list_(list) {}

  [[nodiscard]] int count() const;
  [[nodiscard]] std::wstring text(int row, int column) const;
  /// The first column, top down.
  [[nodiscard]] std::vector<std::wstring> names() const;
  [[nodiscard]] std::vector<int> selected() const;
  /// A mouse button, pressed and let go, on the row's text; below the last row with `row` -1.
  void click(int row, UINT down = WM_LBUTTONDOWN, UINT up = WM_LBUTTONUP) const;
  void doubleClick(int row) const;
  void clickCell(int row, int column) const;
  /// A click on the head of a column, from 0.
  void clickHead(int column) const;
  [[nodiscard]] HWND handle() const { return list_; }

 private:
  [[nodiscard]] POINT pointOf(int row) const;

  HWND list_;
};

/// A native tree view (SysTreeView32) of another process.
class NativeTree {
 public:
  explicit NativeTree(HWND tree) : tree_(tree) {}

  [[nodiscard]] int count() const;
  /// The nodes as they stand, top down: the root, its children, and so on.
  [[nodiscard]] std::vector<std::wstring> texts() const;
  void click(int node, UINT down = WM_LBUTTONDOWN, UINT up = WM_LBUTTONUP) const;
  void expandRoot() const;

 private:
  [[nodiscard]] std::vector<HTREEITEM> nodes() const;

  HWND tree_;
};

/// The open menu of that process (a window of the class #32768), or null. A menu's entries can't be read from
/// another process on every host; what they do can be seen.
[[nodiscard]] HWND openMenuOf(DWORD process);
/// Opens a menu of the window's menu bar by its mnemonic, as Alt and the letter do.
void openMenu(HWND window, wchar_t mnemonic);
/// Presses a letter in the menu that is open over the window.
void pressInMenu(HWND window, wchar_t mnemonic);
/// The text of a part of a status bar of another process.
[[nodiscard]] std::wstring statusText(HWND bar, int part);
void press(HWND window, WPARAM key);
/// A key of the keyboard, with another one held down where one is given. It goes where a person's keys go: to
/// the window in front.
void typeKey(WORD key, WORD held = 0);
/// What has the keyboard in the window's program, or null; of a box with parts, the box.
[[nodiscard]] HWND focusOf(HWND window);
/// Can a person act on it, and does the keyboard have to reach it? Not the buttons of a group but the chosen
/// one.
[[nodiscard]] bool isTabStop(HWND control);
/// What Tab leads to, once round from the focus.
[[nodiscard]] std::vector<HWND> tabRound(HWND window);

}  // namespace varnhold::windows_test
