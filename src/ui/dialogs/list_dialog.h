#pragma once

#include <string>
#include <vector>

#include "app/command.h"
#include "settings/settings.h"
#include "ui/framework/dialog.h"
#include "ui/framework/list_view.h"

namespace qlm {

// The base of the dialogs around one list: its column widths, its context menu, its clipboard, and failures
// that are shown while the dialog stays open.
class CListDialog : public my::CDialog {
 public:
  void Remember() override;

 protected:
  // Both outlive the dialog; `setting` keeps placement and column widths.
  CListDialog(CAppContext& context, UINT templateId, CColumnsDlgSetting& setting)
      : CDialog(templateId, &setting), m_context(context), m_setting(setting) {}

  // To be called once from OnInit. The items of the menu are commands of the dialog. View and model belong to
  // the derived class.
  void UseList(my::CListView& list, const my::IListModel& model, int controlId, UINT menuId);

  // A command of a control, the menu or a key; answers whether it was one of the dialog's. Failures are
  // shown.
  virtual bool Execute(int id, int code) = 0;
  bool OnCommand(int id, int code) final;

  // A key in any control; answers whether the control shall not see it.
  virtual bool OnKey(UINT) { return false; }

  // A key in the list, before OnKey.
  virtual bool OnListKey(UINT key);

  // Whether a static text is to stand out.
  virtual bool IsWarning(int) const { return false; }

  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  // Selects the row alone, where it can be seen.
  void ShowRow(size_t row) const;

  const my::IMessageTexts& Texts() const { return m_context.ports.engine.texts; }
  std::wstring Text(uint32_t id, const std::vector<my::CMsgArg>& args = {}) const;

  CAppContext& m_context;

 private:
  static LRESULT CALLBACK KeyThunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                   DWORD_PTR dialog) noexcept;
  void HearKeys();
  void ShowMenu(POINT screen) const;
  void CopyRows() const;
  void SelectAll() const;

  CColumnsDlgSetting& m_setting;
  my::CListView* m_list = nullptr;
  const my::IListModel* m_model = nullptr;
  UINT m_menuId = 0;
};

// Whether the control key is held down, and no other that changes its meaning.
bool IsControlDown();

}  // namespace qlm
