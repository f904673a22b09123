#include "tests/windows/native_window.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace varnhold::windows_test {
namespace {

constexpr std::size_t kTextLength = 512;

/// Memory in another process, for the messages that carry a pointer.
class RemoteMemory {
 public:
  RemoteMemory(HWND window, std::size_t size) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    at_ = VirtualAllocEx(process_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  }
  ~RemoteMemory() {
    VirtualFreeEx(process_, at_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;

  [[nodiscard]] char* at(std::size_t offset = 0) const { return static_cast<char*>(at_) + offset; }
  template <class T>
  void write(const T& value, std::size_t offset = 0) const {
    WriteProcessMemory(process_, at(offset), &value, sizeof value, nullptr);
  }
  template <class T>
  [[nodiscard]] T read(std::size_t offset = 0) const {
    T value{};
    ReadProcessMemory(process_, at(offset), &value, sizeof value, nullptr);
    return value;
  }
  [[nodiscard]] std::wstring text(std::size_t offset) const {
    std::wstring text(kTextLength, L'\0');
    ReadProcessMemory(process_, at(offset), text.data(), text.size() * sizeof(wchar_t), nullptr);
    return text.substr(0, text.find(L'\0'));
  }

 private:
  HANDLE process_ = nullptr;
  void* at_ = nullptr;
};

template <class T>
LRESULT send(HWND window, UINT message, WPARAM first, T second) {
  return SendMessageW(window, message, first, reinterpret_cast<LPARAM>(second));
}

LRESULT send(HWND window, UINT message, WPARAM first = 0) {
  return SendMessageW(window, message, first, 0);
}

void mouse(HWND window, POINT point, UINT down, UINT up) {
  const auto where = MAKELPARAM(point.x, point.y);
  const WPARAM button = down == WM_RBUTTONDOWN ? MK_RBUTTON : MK_LBUTTON;
  // The control waits inside the press for what follows, so both must be in its queue.
  PostMessageW(window, down, button, where);
  PostMessageW(window, up, 0, where);
}

POINT middleOf(const RECT& box) {
  return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

struct Search {
  DWORD process;
  std::vector<HWND> found;
};

BOOL CALLBACK addWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process == search.process && IsWindowVisible(window) != 0) search.found.push_back(window);
  return TRUE;
}

BOOL CALLBACK addChild(HWND window, LPARAM parameter) {
  if (IsWindowVisible(window) != 0) reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(window);
  return TRUE;
}

std::vector<HWND> windowsOf(DWORD process) {
  Search search{process, {}};
  EnumWindows(addWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace

bool waitFor(const std::function<bool()>& look, unsigned seconds) {
  for (unsigned turn = 0; turn < seconds * 20; ++turn) {
    if (look()) return true;
    Sleep(50);
  }
  return false;
}

std::wstring textOf(HWND window) {
  wchar_t text[kTextLength] = {};
  send(window, WM_GETTEXT, kTextLength, text);
  return text;
}

HWND windowOf(DWORD process, const std::wstring& title) {
  for (auto* window : windowsOf(process)) {
    if (textOf(window) == title) return window;
  }
  return nullptr;
}

bool showsWindow(DWORD process) {
  return !windowsOf(process).empty();
}

std::wstring classOf(HWND window) {
  wchar_t name[128] = {};
  GetClassNameW(window, name, 128);
  return name;
}

std::wstring captionOf(HWND window) {
  auto caption = textOf(window);
  caption.erase(std::remove(caption.begin(), caption.end(), L'&'), caption.end());
  std::wistringstream words(caption.substr(0, caption.find(L'\t')));
  std::wstring line;
  for (std::wstring word; words >> word;) line += (line.empty() ? L"" : L" ") + word;
  return line;
}

std::vector<HWND> childrenOf(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(window, addChild, reinterpret_cast<LPARAM>(&children));
  return children;
}

std::vector<HWND> childrenOf(HWND window, const std::wstring& windowClass) {
  auto children = childrenOf(window);
  std::erase_if(children, [&](HWND child) { return classOf(child) != windowClass; });
  return children;
}

HWND childOf(HWND window, const std::wstring& windowClass, const std::wstring& text) {
  for (auto* child : childrenOf(window, windowClass)) {
    if (text == L"*" || captionOf(child) == text) return child;
  }
  return nullptr;
}

void enterText(HWND box, const std::wstring& text) {
  SendMessageW(box, EM_SETSEL, 0, -1);
  send(box, EM_REPLACESEL, TRUE, text.c_str());
}

bool isChecked(HWND button) {
  return send(button, BM_GETCHECK) == BST_CHECKED;
}

int NativeList::count() const {
  return static_cast<int>(send(list_, LVM_GETITEMCOUNT));
}

std::wstring NativeList::text(int row, int column) const {
  const RemoteMemory memory(list_, sizeof(LVITEMW) + kTextLength * sizeof(wchar_t));
  LVITEMW item{};
  item.iSubItem = column;
  item.cchTextMax = static_cast<int>(kTextLength);
  item.pszText = reinterpret_cast<wchar_t*>(memory.at(sizeof item));
  memory.write(item);
  send(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), memory.at());
  return memory.text(sizeof item);
}

std::vector<std::wstring> NativeList::names() const {
  std::vector<std::wstring> names;
  for (int row = 0; row < count(); ++row) names.push_back(text(row, 0));
  return names;
}

std::vector<int> NativeList::selected() const {
  std::vector<int> rows;
  for (int row = -1;;) {
    row = static_cast<int>(SendMessageW(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED));
    if (row < 0) return rows;
    rows.push_back(row);
  }
}

POINT NativeList::pointOf(int row) const {
  RECT client{};
  GetClientRect(list_, &client);
  if (row < 0) return {client.left + 20, client.bottom - 5};
  const RemoteMemory memory(list_, sizeof(RECT));
  memory.write(RECT{LVIR_LABEL, 0, 0, 0});
  send(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), memory.at());
  const auto box = memory.read<RECT>();
  return {box.left + 8, (box.top + box.bottom) / 2};
}

void NativeList::click(int row, UINT down, UINT up) const {
  mouse(list_, pointOf(row), down, up);
}

void NativeList::doubleClick(int row) const {
  click(row);
  mouse(list_, pointOf(row), WM_LBUTTONDBLCLK, WM_LBUTTONUP);
}

void NativeList::clickCell(int row, int column) const {
  const RemoteMemory memory(list_, sizeof(RECT));
  memory.write(RECT{LVIR_LABEL, column, 0, 0});
  send(list_, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), memory.at());
  mouse(list_, middleOf(memory.read<RECT>()), WM_LBUTTONDOWN, WM_LBUTTONUP);
}

void NativeList::clickHead(int column) const {
  auto* head = reinterpret_cast<HWND>(send(list_, LVM_GETHEADER));
  const RemoteMemory memory(head, sizeof(RECT));
  send(head, HDM_GETITEMRECT, static_cast<WPARAM>(column), memory.at());
  mouse(head, middleOf(memory.read<RECT>()), WM_LBUTTONDOWN, WM_LBUTTONUP);
}

int NativeTree::count() const {
  return static_cast<int>(send(tree_, TVM_GETCOUNT));
}

std::vector<HTREEITEM> NativeTree::nodes() const {
  std::vector<HTREEITEM> found, open{reinterpret_cast<HTREEITEM>(send(tree_, TVM_GETNEXTITEM, TVGN_ROOT))};
  while (!open.empty()) {
    auto* node = open.back();
    open.pop_back();
    if (node == nullptr) continue;
    found.push_back(node);
    open.push_back(reinterpret_cast<HTREEITEM>(send(tree_, TVM_GETNEXTITEM, TVGN_NEXT, node)));
    open.push_back(reinterpret_cast<HTREEITEM>(send(tree_, TVM_GETNEXTITEM, TVGN_CHILD, node)));
  }
  return found;
}

std::vector<std::wstring> NativeTree::texts() const {
  const RemoteMemory memory(tree_, sizeof(TVITEMW) + kTextLength * sizeof(wchar_t));
  std::vector<std::wstring> texts;
  for (auto* node : nodes()) {
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = node;
    item.cchTextMax = static_cast<int>(kTextLength);
    item.pszText = reinterpret_cast<wchar_t*>(memory.at(sizeof item));
    memory.write(item);
    send(tree_, TVM_GETITEMW, 0, memory.at());
    texts.push_back(memory.text(sizeof item));
  }
  return texts;
}

void NativeTree::expandRoot() const {
  send(tree_, TVM_EXPAND, TVE_EXPAND, nodes().front());
}

void NativeTree::click(int node, UINT down, UINT up) const {
  const RemoteMemory memory(tree_, sizeof(RECT));
  // The message takes the node in the place where it leaves the box.
  memory.write(nodes().at(static_cast<std::size_t>(node)));
  send(tree_, TVM_GETITEMRECT, TRUE, memory.at());
  mouse(tree_, middleOf(memory.read<RECT>()), down, up);
}

HWND openMenuOf(DWORD process) {
  for (auto* window : windowsOf(process)) {
    if (classOf(window) == L"#32768") return window;
  }
  return nullptr;
}

void openMenu(HWND window, wchar_t mnemonic) {
  PostMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, mnemonic);
}

void pressInMenu(HWND window, wchar_t mnemonic) {
  PostMessageW(window, WM_CHAR, mnemonic, 0);
}

std::wstring statusText(HWND bar, int part) {
  const RemoteMemory memory(bar, kTextLength * sizeof(wchar_t));
  send(bar, SB_GETTEXTW, static_cast<WPARAM>(part), memory.at());
  return memory.text(0);
}

void press(HWND window, WPARAM key) {
  PostMessageW(window, WM_KEYDOWN, key, 0);
  PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void typeKey(WORD key, WORD held) {
  std::vector<INPUT> inputs;
  const auto add = [&](WORD which, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = which;
    // The arrows beside the digits are other keys, and answer to the same codes.
    const bool isArrow = which >= VK_LEFT && which <= VK_DOWN;
    input.ki.dwFlags = flags | (isArrow ? KEYEVENTF_EXTENDEDKEY : 0);
    inputs.push_back(input);
  };
  if (held != 0) add(held, 0);
  add(key, 0);
  add(key, KEYEVENTF_KEYUP);
  if (held != 0) add(held, KEYEVENTF_KEYUP);
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

HWND focusOf(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  if (!GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info)) return nullptr;
  auto* parent = info.hwndFocus == nullptr ? nullptr : GetParent(info.hwndFocus);
  return parent != nullptr && classOf(parent) == L"ComboBox" ? parent : info.hwndFocus;
}

bool isTabStop(HWND control) {
  if (IsWindowEnabled(control) == 0) return false;
  const auto name = classOf(control);
  if (name == L"Edit") return classOf(GetParent(control)) != L"ComboBox";
  if (name != L"Button") return name == L"ComboBox" || name == L"ListBox" || name == L"SysListView32";
  const auto kind = GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
  if (kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON) return isChecked(control);
  return kind != BS_GROUPBOX;
}

std::vector<HWND> tabRound(HWND window) {
  constexpr std::size_t kMost = 40;
  std::vector<HWND> round{focusOf(window)};
  while (round.size() < kMost) {
    typeKey(VK_TAB);
    if (!waitFor([&] { return focusOf(window) != round.back(); }, 3) || focusOf(window) == round.front())
      break;
    round.push_back(focusOf(window));
  }
  return round;
}

}  // namespace varnhold::windows_test
