// What the tests of windows share.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <iterator>
#include <string>

#include "gui/test_dialog.h"
#include "ui/framework/dialog.h"
#include "ui/framework/list_view.h"

namespace test {

// Messages that are waiting, but no longer than it takes.
inline void Pump() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

// Handles messages until something has come true; gives up, and answers false, after 20 s.
template <class Test>
bool PumpUntil(Test test) {
  const ULONGLONG end = ::GetTickCount64() + 20'000;
  while (!test() && ::GetTickCount64() < end) {
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    Pump();
  }
  return test();
}

// The modeless dialog that a command has opened.
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

// The child that holds a control; null when there is none.
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

// Wine does not count for GetGuiResources; there the slots of its table of GDI objects can be asked one by
// one.
inline DWORD GdiObjects() {
  DWORD count = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
  if (count != 0) return count;
  for (UINT_PTR slot = 1; slot <= 0xFFFF; ++slot)
    if (::GetObjectType(reinterpret_cast<HGDIOBJ>(slot)) != 0) ++count;
  return count;
}

// There only windows are counted.
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
