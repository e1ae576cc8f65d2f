#include "ui/framework/combo_texts.h"

#include <utility>

#include "ui/framework/controls.h"

namespace my {
namespace {

// Returns the edit control of an editable combo box; null for any other control.
HWND EditOf(HWND control) {
  return IsComboBox(control) ? ::FindWindowExW(control, nullptr, L"Edit", nullptr) : nullptr;
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
