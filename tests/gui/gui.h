// Helpers for tests of windows.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "gui/test_dialog.h"
#include "support/checks.h"
#include "ui/framework/controls.h"
#include "ui/framework/dialog.h"
#include "ui/framework/gdi.h"
#include "ui/framework/list_view.h"
#include "ui/framework/message_loop.h"
#include "ui/framework/window.h"

namespace test {

// Handles the waiting messages, for a limited time.
inline void Pump() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

// Handles messages until the test returns true. Returns false after 20 s.
template <class Test>
bool PumpUntil(Test test) {
  const ULONGLONG end = ::GetTickCount64() + 20'000;
  while (!test() && ::GetTickCount64() < end) {
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    Pump();
  }
  return test();
}

// Presses keys of the keyboard together, the first ones held while the last one is pressed.
inline void Press(std::initializer_list<WORD> keys) {
  std::vector<INPUT> inputs;
  for (const WORD key : keys) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    inputs.push_back(input);
  }
  for (size_t i = keys.size(); i-- > 0;) {
    inputs.push_back(inputs[i]);
    inputs.back().ki.dwFlags = KEYEVENTF_KEYUP;
  }
  EXPECT_EQ(::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)), inputs.size());
}

// Presses keys in a window and lets the loop of the program handle them until the test returns true.
template <class Test>
bool PressUntil(my::CAutoMessageLoop& loop, HWND window, std::initializer_list<WORD> keys, Test test) {
  ::SetForegroundWindow(window);
  Press(keys);
  static HWND s_window;
  static ULONGLONG s_end;
  s_window = window;
  s_end = ::GetTickCount64() + 10'000;
  const auto quit = [](HWND, UINT, UINT_PTR, DWORD) {
    const bool modal = !::IsWindowEnabled(s_window);  // the loop of a modal dialog is running
    if (!modal || ::GetTickCount64() > s_end) ::PostQuitMessage(0);
  };
  const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, quit);
  do {
    loop.Run();
  } while (!test() && ::GetTickCount64() < s_end);
  ::KillTimer(nullptr, timer);
  return test();
}

// Returns the modeless dialog that has this control.
inline HWND DialogWith(int controlId) {
  struct CSearch {
    int id;
    HWND found;
  } search{controlId, nullptr};
  const auto look = [](HWND window, LPARAM parameter) -> BOOL {
    auto& wanted = *reinterpret_cast<CSearch*>(parameter);
    if (::GetDlgItem(window, wanted.id)) wanted.found = window;
    return wanted.found == nullptr;
  };
  ::EnumThreadWindows(::GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// Returns the child window that contains the control; null if there is none.
inline HWND ChildWith(HWND parent, int id) {
  HWND child = ::GetWindow(parent, GW_CHILD);
  while (child && !::GetDlgItem(child, id)) child = ::GetWindow(child, GW_HWNDNEXT);
  return child;
}

inline RECT Bounds(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  return rect;
}

inline SIZE Size(HWND window) {
  const RECT rect = Bounds(window);
  return {rect.right - rect.left, rect.bottom - rect.top};
}

inline void Resize(HWND window, int width, int height) {
  ::SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Counts GDI objects. GetGuiResources does not work under Wine, where each slot of the GDI table can be
// queried instead.
inline DWORD GdiObjects() {
  DWORD count = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
  if (count != 0) return count;
  for (UINT_PTR slot = 1; slot <= 0xFFFF; ++slot)
    if (::GetObjectType(reinterpret_cast<HGDIOBJ>(slot)) != 0) ++count;
  return count;
}

// Under Wine only windows are counted.
inline DWORD UserObjects() {
  DWORD count = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
  const auto countOne = [](HWND, LPARAM sum) -> BOOL { return ++*reinterpret_cast<DWORD*>(sum) != 0; };
  if (count == 0) ::EnumThreadWindows(::GetCurrentThreadId(), countOne, reinterpret_cast<LPARAM>(&count));
  return count;
}

inline std::wstring CellOf(HWND list, int row, int column) {
  wchar_t text[1024] = L"";
  ListView_GetItemText(list, row, column, text, static_cast<int>(std::size(text)));
  return text;
}

// Returns whether all column titles of a list are shown in full.
inline testing::AssertionResult TitlesFit(HWND list) {
  constexpr LONG kAround = 12;
  const HWND header = ListView_GetHeader(list);
  const my::CWindowDc dc(header);
  const my::CSelect font(dc.Get(), reinterpret_cast<HFONT>(::SendMessageW(header, WM_GETFONT, 0, 0)));
  for (int i = 0; i < Header_GetItemCount(header); ++i) {
    wchar_t text[100]{};
    HDITEMW item{};
    item.mask = HDI_TEXT | HDI_WIDTH;
    item.pszText = text;
    item.cchTextMax = static_cast<int>(std::size(text));
    Header_GetItem(header, i, &item);
    SIZE size{};
    ::GetTextExtentPoint32W(dc.Get(), text, ::lstrlenW(text), &size);
    if (size.cx + kAround > item.cxy)
      return testing::AssertionFailure()
             << "title " << text << " needs " << size.cx + kAround - item.cxy << " more";
  }
  return testing::AssertionSuccess();
}

// Clicks a control like a user; does nothing if it is disabled.
inline void Click(HWND dialog, int id) {
  const HWND control = ::GetDlgItem(dialog, id);
  if (::IsWindowEnabled(control)) ::SendMessageW(control, BM_CLICK, 0, 0);
}

inline void Type(HWND dialog, int id, const wchar_t* text) {
  HWND edit = ::GetDlgItem(dialog, id);
  if (const HWND inner = ::FindWindowExW(edit, nullptr, L"Edit", nullptr))
    edit = inner;  // the edit control of a combo box
  if (!::IsWindowEnabled(edit)) return;
  ::SendMessageW(edit, EM_SETSEL, 0, -1);
  ::SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
}

inline void Choose(HWND dialog, int id, int item) {
  const HWND combo = ::GetDlgItem(dialog, id);
  ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
  ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
  Pump();
}

inline void PressKey(HWND control, WPARAM key) {
  ::SendMessageW(control, WM_KEYDOWN, key, 1);
}

using my::TextOf;

inline std::wstring TextOf(HWND dialog, int id) {
  return TextOf(::GetDlgItem(dialog, id));
}

inline const my::CWindowClass& FrameClass() {
  static const my::CWindowClass frame(L"QuillmoorTestFrame");
  return frame;
}

inline std::wstring StatusText(HWND bar, int part = 0) {
  wchar_t text[256]{};
  ::SendMessageW(bar, SB_GETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text));
  return text;
}

inline void FocusRow(HWND list, int row) {
  ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

// Sets the size of the system's texts, as the accessibility settings do; restores it when destroyed.
class CTextSize {
 public:
  CTextSize() { Metrics(SPI_GETNONCLIENTMETRICS, m_before); }
  ~CTextSize() { Metrics(SPI_SETNONCLIENTMETRICS, m_before); }

  void Set(int percent) {
    NONCLIENTMETRICSW metrics = m_before;
    metrics.lfMessageFont.lfHeight = ::MulDiv(metrics.lfMessageFont.lfHeight, percent, 100);
    Metrics(SPI_SETNONCLIENTMETRICS, metrics);
  }

 private:
  static void Metrics(UINT action, NONCLIENTMETRICSW& metrics) {
    metrics.cbSize = sizeof metrics;
    ASSERT_TRUE(::SystemParametersInfoW(action, sizeof metrics, &metrics, 0));
  }

  NONCLIENTMETRICSW m_before{};
};

struct CRows : my::IListModel {
  size_t count = 10000;
  std::vector<my::ListCheck> checks = {my::ListCheck::Unchecked, my::ListCheck::Checked,
                                       my::ListCheck::Mixed};

  size_t RowCount() const override { return count; }
  size_t ColumnCount() const override { return 2; }
  my::CListColumn Column(size_t column) const override {
    return {L"column", column == 0 ? 80 : 41, my::ListAlign::Right};
  }
  std::wstring Text(size_t row, size_t column) const override {
    return (column == 0 ? L"Row" : L"second") + std::to_wstring(row);
  }
  my::ListCheck Check(size_t row) const override {
    return row < checks.size() ? checks[row] : my::ListCheck::None;
  }
};

}  // namespace test
