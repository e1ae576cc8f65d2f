// The main window.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <memory>

#include "app/windows.h"
#include "ui/dialogs/dialogs.h"
#include "ui/framework/message_loop.h"
#include "ui/framework/session_hold.h"
#include "ui/framework/window.h"
#include "ui/look/tool_images.h"
#include "ui/main_window/main_bars.h"
#include "ui/main_window/main_view.h"
#include "ui/main_window/run_indicator.h"
#include "ui/models/edit_actions.h"
#include "ui/models/result_list_model.h"

namespace qlm {

class CApplication;

class CMainFrame : public my::CWindow, public IMainWindow {
 public:
  // `showCommand` is how the window is to appear.
  CMainFrame(my::CAutoMessageLoop& loop, int showCommand);

  IDialogs& Dialogs() { return m_dialogs; }

  // Creates the window, in the course of which the application starts. Answers false, after it was told, when
  // there is no window. The application outlives the window.
  bool Create(CApplication& application);

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // One of the two lists, before it is there as well as after.
  class CFrameList : public IEditList {
   public:
    CFrameList(CMainFrame& frame, ListKind kind) : m_frame(frame), m_kind(kind) {}

    std::optional<size_t> FocusedRow() const override;
    std::vector<size_t> SelectedRows() const override;
    bool AnySelected() const override;
    void Focus() override;
    void Select(const CRows& rows) override;

   private:
    CListPane* Pane() const;
    IListState* List() const;

    CMainFrame& m_frame;
    ListKind m_kind;
  };

  // What needs the application.
  struct CParts {
    CParts(CApplication& application, CMainFrame& frame);

    CMainView view;
    CToolBar toolBar;
    CStatusBar statusBar;
    CResultListModel results;
    CEditActions edits;
    CRunIndicator indicator;
  };

  IListState& TaskList() override { return m_taskList; }
  IListState& DstList() override { return m_dstList; }
  void RedrawLists() override;
  void ApplySettings(const CSettings& settings) override;
  void StoreSettings(CSettings& settings) override;
  void UpdateTitle() override;
  void PostClose() override { ::PostMessageW(Hwnd(), WM_CLOSE, 0, 0); }
  void HoldSession(const std::wstring& reason) override { my::HoldSession(Hwnd(), reason); }
  void ShowClosing() override;
  void StartTimer(uint32_t periodMs) override;
  void StopTimer() override;
  void ClearResults() override;
  void ShowResults(size_t firstRow, const CResults& rows) override;
  void ShowRunStatus() override;
  void ShowRunState() override;

  void OnCreate();
  void ListenToList(ListKind kind);
  void OnDocumentChanged(DocChangeEventFlags what);
  void OnSelectionChanged(ListKind kind);
  void OnFocusChanged();
  void OnCommand(int id);
  void Execute(int id);
  bool IsEnabled(int id) const;
  void OnMenu(HMENU menu) const;
  void OnMenuSelect(int id, UINT flags);
  void OnDrop(HDROP drop);
  void OnRunEnded();
  void OnClose();
  void CheckFilter();
  void ShowCounts() const;
  void UpdateCommands() const;
  void UseDpi(UINT dpi);
  void ShowIcons();
  void Arrange();
  void ToggleFullScreen();
  ListKind CurrentList() const;

  my::CAutoMessageLoop& m_loop;
  int m_showCommand;
  CApplication* m_app = nullptr;
  CFrameList m_taskList;
  CFrameList m_dstList;
  CDialogs m_dialogs;
  std::unique_ptr<CParts> m_parts;
  my::CAccelerators m_keys;
  my::CTranslation m_translation;
  my::CFont m_font;
  CToolImages m_images;
  my::CIcon m_smallIcon;
  my::CIcon m_largeIcon;
  UINT m_dpi = 0;
  bool m_runShown = false;  // the system has been told of the run
  bool m_fullScreen = false;
  WINDOWPLACEMENT m_beforeFullScreen{};
};

}  // namespace qlm
