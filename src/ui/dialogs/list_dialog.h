#pragma once

#include <string>
#include <vector>

#include "app/command.h"
#include "settings/settings.h"
#include "ui/framework/dialog.h"
#include "ui/framework/list_view.h"

namespace qlm {

class CSortedList;

// The base of dialogs with lists: column widths, context menu, sorting, clipboard, and failures that are
// shown while the dialog stays open.
class CListDialog : public my::CDialog {
 public:
  void Remember() override;

 protected:
  // Both must outlive the dialog; `setting` stores placement and column widths.
  CListDialog(CAppContext& context, UINT templateId, CColumnsDlgSetting& setting)
      : CDialog(templateId, &setting), m_context(context), m_setting(setting) {}

  // Must be called from OnInit for each list. The menu items are commands of the dialog. View and model
  // belong to the derived class. The column widths of the first list are stored. A sorted list is copied as
  // TabbedText does.
  void UseList(my::CListView& list, const my::IListModel& model, int controlId, UINT menuId);
  void UseList(CSortedList& list, int controlId, UINT menuId);

  // Returns whether this list has, or of all lists last had, the focus.
  bool IsCurrent(const my::CListView& list) const { return m_lists[m_current].view == &list; }

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
  std::optional<LRESULT> OnNotify(const NMHDR& header) override;

  // Selects only this row of the first list and scrolls it into view.
  void ShowRow(size_t row) const;

  const my::IMessageTexts& Texts() const { return m_context.ports.engine.texts; }
  std::wstring Text(uint32_t id, const std::vector<my::CMsgArg>& args = {}) const;

  CAppContext& m_context;

 private:
  struct CShownList {
    my::CListView* view = nullptr;
    const my::IListModel* model = nullptr;
    UINT menuId = 0;
    CSortedList* sorted = nullptr;  // the same view, if the user can sort it
  };

  static LRESULT CALLBACK KeyThunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                   DWORD_PTR dialog) noexcept;
  void HearKeys();
  void ShowMenu(POINT screen) const;
  bool ExecuteCommon(int id);
  void CopyRows() const;
  std::wstring SelectedText() const;
  const CShownList& Current() const { return m_lists[m_current]; }

  CColumnsDlgSetting& m_setting;
  std::vector<CShownList> m_lists;
  size_t m_current = 0;
};

// Returns whether the Ctrl key is down without other modifier keys.
bool IsControlDown();

}  // namespace qlm
