#pragma once

#include <string>
#include <vector>

#include "app/command.h"
#include "settings/settings.h"
#include "ui/framework/dialog.h"
#include "ui/framework/list_view.h"

namespace qlm {

// The base of dialogs with one list: column widths, context menu, clipboard, and failures that are shown
// while the dialog stays open.
class CListDialog : public my::CDialog {
 public:
  void Remember() override;

 protected:
  // Both must outlive the dialog; `setting` stores placement and column widths.
  CListDialog(CAppContext& context, UINT templateId, CColumnsDlgSetting& setting)
      : CDialog(templateId, &setting), m_context(context), m_setting(setting) {}

  // Must be called once from OnInit. The menu items are commands of the dialog. View and model belong to the
  // derived class.
  void UseList(my::CListView& list, const my::IListModel& model, int controlId, UINT menuId);

  // Handles a command of a control, the menu or a key. Returns whether it was handled. Failures are shown.
  virtual bool Execute(int id, int code) = 0;
  bool OnCommand(int id, int code) final;

  // Handles a key in any control. Returns true to hide it from the control.
  virtual bool OnKey(UINT) { return false; }

  // Handles a key in the list, before OnKey.
  virtual bool OnListKey(UINT key);

  // Returns whether a static text is drawn as a warning.
  virtual bool IsWarning(int) const { return false; }

  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  // Selects only this row and scrolls it into view.
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

// Returns whether the Ctrl key is down without other modifier keys.
bool IsControlDown();

}  // namespace qlm
