#include "ui/framework/combo_texts.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace my {
namespace {

// Returns the edit control of an editable combo box; null for any other control.
HWND EditOf(HWND control) {
  wchar_t name[16]{};
  ::GetClassNameW(control, name, static_cast<int>(std::size(name)));
  if (std::wstring_view(name) != L"ComboBox") return nullptr;
  return ::FindWindowExW(control, nullptr, L"Edit", nullptr);
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<size_t>(::GetWindowTextLengthW(window)), L'\0');
  text.resize(static_cast<size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

}  // namespace

CComboTexts::CComboTexts(HWND window) {
  for (HWND child = ::GetWindow(window, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const HWND edit = EditOf(child);
    if (!edit) continue;
    CText kept{child, edit, TextOf(edit)};
    ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&kept.start),
                   reinterpret_cast<LPARAM>(&kept.end));
    m_texts.push_back(std::move(kept));
  }
}

CComboTexts::~CComboTexts() {
  for (const CText& kept : m_texts) {
    if (!::IsWindow(kept.edit)) continue;
    if (TextOf(kept.edit) != kept.text) ::SetWindowTextW(kept.combo, kept.text.c_str());
    ::SendMessageW(kept.edit, EM_SETSEL, kept.start, static_cast<LPARAM>(kept.end));
  }
}

}  // namespace my
