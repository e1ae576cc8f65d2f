#include "ui/dialogs/list_dialog.h"

#include <commctrl.h>

#include "control_ids.h"
#include "platform/message_texts.h"
#include "support/contrast.h"
#include "ui/framework/clipboard.h"
#include "ui/framework/colors.h"
#include "ui/framework/failures.h"
#include "ui/framework/local_menu.h"
#include "ui/models/row_colors.h"

namespace qlm {
namespace {

COLORREF WarningColor(const CUISetting& setting) {
  constexpr double kContrast = 7;
  const my::CColor color = StateLook(setting, ResultState::Failed).color.value_or(my::CColor{});
  const double luminance = my::Luminance(my::SystemColor(COLOR_BTNFACE));
  return my::ColorRef(my::Readable(color, luminance, luminance < 0.18, kContrast));
}

}  // namespace

bool IsControlDown() {
  return ::GetKeyState(VK_CONTROL) < 0 && ::GetKeyState(VK_MENU) >= 0 && ::GetKeyState(VK_SHIFT) >= 0;
}

void CListDialog::UseList(my::CListView& list, const my::IListModel& model, int controlId, UINT menuId) {
  list.Attach(Item(controlId), my::CListView::Boxes::No);
  list.SetWidths(m_setting.columnWidthes);
  list.Events().key = [this](UINT key) { return OnListKey(key) || OnKey(key); };
  list.Events().contextMenu = [this](POINT screen) { ShowMenu(screen); };
  m_list = &list;
  m_model = &model;
  m_menuId = menuId;
  HearKeys();
}

void CListDialog::HearKeys() {
  for (HWND child = ::GetWindow(Hwnd(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (child == m_list->Hwnd()) continue;
    ::SetWindowSubclass(child, KeyThunk, 0, reinterpret_cast<DWORD_PTR>(this));
  }
}

LRESULT CALLBACK CListDialog::KeyThunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR dialog) noexcept {
  if (message == WM_NCDESTROY) ::RemoveWindowSubclass(hwnd, KeyThunk, id);
  if (message == WM_KEYDOWN) {
    auto* self = reinterpret_cast<CListDialog*>(dialog);
    if (my::Guarded(false, [&] { return self->OnKey(static_cast<UINT>(wParam)); })) return 0;
  }
  return ::DefSubclassProc(hwnd, message, wParam, lParam);
}

bool CListDialog::OnCommand(int id, int code) {
  try {
    if (id != IDC_LIST_COPY) return Execute(id, code);
    CopyRows();
  } catch (...) {
    ShowCurrentFailure(m_context);
  }
  return true;
}

bool CListDialog::OnListKey(UINT key) {
  if (!IsControlDown()) return false;
  switch (key) {
    case L'A': SelectAll(); return true;
    case L'C': OnCommand(IDC_LIST_COPY, BN_CLICKED); return true;
    default: return false;
  }
}

std::optional<LRESULT> CListDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_CTLCOLORSTATIC) return {};
  if (!IsWarning(::GetDlgCtrlID(reinterpret_cast<HWND>(lParam)))) return {};
  const auto dc = reinterpret_cast<HDC>(wParam);
  ::SetTextColor(dc, WarningColor(m_context.settings.ui));
  ::SetBkColor(dc, ::GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_BTNFACE));
}

void CListDialog::Remember() {
  CDialog::Remember();
  if (m_list && m_list->Hwnd()) m_setting.columnWidthes = m_list->Widths();
}

void CListDialog::ShowRow(size_t row) const {
  m_list->Select({row});
  m_list->SetFocused(row);
  m_list->EnsureVisible(row);
}

std::wstring CListDialog::Text(uint32_t id, const std::vector<my::CMsgArg>& args) const {
  return my::MakeText(Texts(), id, args);
}

void CListDialog::ShowMenu(POINT screen) const {
  const my::CMenu menu(my::LoadLocalMenu(m_menuId));
  ::TrackPopupMenu(::GetSubMenu(menu.Get(), 0), TPM_RIGHTBUTTON, screen.x, screen.y, 0, Hwnd(), nullptr);
}

// Copies the selected rows as text, one line per row with tabs between cells, as spreadsheets expect.
void CListDialog::CopyRows() const {
  std::wstring text;
  for (const size_t row : m_list->Selection()) {
    for (size_t column = 0; column < m_model->ColumnCount(); ++column) {
      if (column != 0) text += L'\t';
      text += m_model->Text(row, column);
    }
    text += L"\r\n";
  }
  if (!text.empty()) my::CClipboard(L"Quillmoor").Set(Hwnd(), text, {});
}

void CListDialog::SelectAll() const {
  ListView_SetItemState(m_list->Hwnd(), -1, LVIS_SELECTED, LVIS_SELECTED);
}

}  // namespace qlm
