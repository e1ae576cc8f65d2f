// The two lists of the main window: the tasks above, the common destinations below.
#pragma once

#include <functional>

#include "app/windows.h"
#include "document/document.h"
#include "ui/dialogs/simple_list_view.h"
#include "ui/framework/splitter.h"
#include "ui/look/background.h"
#include "ui/main_window/list_pane.h"
#include "ui/models/dst_list_model.h"
#include "ui/models/task_list_model.h"

namespace qlm {

struct CMainFrameSetting;

class CMainView {
 public:
  // All arguments must outlive the view.
  CMainView(const CDocument& document, const CUISetting& setting, const my::IMessageTexts& texts);

  void CreateIn(HWND parent);
  HWND Hwnd() const { return m_splitter.Hwnd(); }

  // Lays out and shows the panes. Must be called once.
  void Show();

  using CTaskList = CSimpleListView<CTasks, CSeeThroughList>;
  using CDstList = CSimpleListView<CDsts, CSeeThroughList>;
  CTaskList& TaskList() { return m_taskList; }
  CDstList& DstList() { return m_dstList; }

  CListPane& Tasks() { return m_tasks; }
  CListPane& Dsts() { return m_dsts; }
  CTaskListModel& TaskModel() { return m_taskModel; }

  // The pane that has, or last had, the focus.
  CListPane& Current();
  bool TasksAreCurrent() { return &Current() == &m_tasks; }
  void FocusOther();

  // Refreshes the lists affected by a document change. After a reset the first rows are selected.
  void OnDocumentChanged(DocChangeEventFlags what);

  // Must be called when the selected tasks have changed: shows their destinations.
  void OnTaskSelection();

  // Enables the buttons whose commands may run now.
  void EnableButtons(const std::function<bool(int id)>& isEnabled) const;

  // Marks the rows with findings.
  void ShowAdvice(const std::shared_ptr<const CAdviceMarks>& marks);

  void Redraw();  // the texts have changed without a document change

  // Shows a design. Throws IDS_IMAGE_NOT_READ; everything except the picture is applied then.
  void ShowDesign(const CDesignSetting& design);

  // A run has started or ended.
  void ShowRunning(bool running);

  // The system's colours or contrast have changed.
  void OnSystemChanged();

  void ApplySettings(const CMainFrameSetting& setting);
  void StoreSettings(CMainFrameSetting& setting) const;

 private:
  void RememberCurrent(HWND focus);
  void RefreshUses(bool always);
  void UseBackground();
  void Describe(CListPane& pane);
  void UpdateDescription();

  const CDocument& m_document;
  const my::IMessageTexts& m_texts;
  CTaskListModel m_taskModel;
  CDstListModel m_dstModel;
  CBackground m_background;
  CTaskList m_taskList;
  CDstList m_dstList;
  my::CSplitter m_splitter;
  CListPane m_tasks;
  CListPane m_dsts;
  bool m_dstsCurrent = false;
  bool m_showDescription = true;
  bool m_running = false;
  CListPane* m_described = nullptr;  // the pane the user turned to last
};

}  // namespace qlm
