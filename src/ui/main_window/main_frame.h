// The main window.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "app/windows.h"
#include "ui/dialogs/dialogs.h"
#include "ui/framework/focus_memory.h"
#include "ui/framework/full_screen.h"
#include "ui/framework/message_loop.h"
#include "ui/framework/session_hold.h"
#include "ui/framework/window.h"
#include "ui/framework/window_icons.h"
#include "ui/look/tool_images.h"
#include "ui/main_window/advice_presenter.h"
#include "ui/main_window/command_help.h"
#include "ui/main_window/frame_list.h"
#include "ui/main_window/history_presenter.h"
#include "ui/main_window/main_view.h"
#include "ui/main_window/run_panel.h"
#include "ui/main_window/run_presenter.h"
#include "ui/main_window/status_bar.h"
#include "ui/main_window/tool_bar.h"

namespace qlm {

class CApplication;

class CMainFrame : public my::CWindow, public IMainWindow {
 public:
  // `showCommand` is an SW_ value.
  CMainFrame(my::CAutoMessageLoop& loop, int showCommand);

  IDialogs& Dialogs() { return m_dialogs; }

  // Creates the window, which starts the application. Returns false if that failed; the failure has been
  // shown. The application must outlive the window.
  bool Create(CApplication& application);

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // The members that need the application.
  struct CParts {
    CParts(CApplication& application, CDialogs& dialogs, HACCEL keys);

    CMainView view;
    CToolBar toolBar;
    CStatusBar statusBar;
    CRunPanel panel;
    CRunPresenter run;
    CHistoryPresenter history;
    CCommandHelp help;
    CAdvicePresenter advice;
  };

  IEditList& TaskList() override { return m_taskList; }
  IEditList& DstList() override { return m_dstList; }
  ListKind CurrentList() override;
  void FocusOtherList() override { m_parts->view.FocusOther(); }
  void RedrawLists() override;
  void ApplySettings(const CSettings& settings) override;
  void StoreSettings(CSettings& settings) override;
  void ToggleFullScreen() override { m_fullScreen.Toggle(Hwnd()); }
  void UpdateTitle() override;
  void PostClose() override { ::PostMessageW(Hwnd(), WM_CLOSE, 0, 0); }
  void PostCommand(uint32_t id) override { ::PostMessageW(Hwnd(), WM_COMMAND, id, 0); }
  void RunWhenPainted(const std::function<void()>& work) override;
  void HoldSession(const std::wstring& reason) override { my::HoldSession(Hwnd(), reason); }
  void ShowClosing() override;
  void StartTimer(uint32_t periodMs) override;
  void StopTimer() override;
  void ClearResults() override { m_parts->run.ClearResults(); }
  void ShowResults(size_t firstRow, const CResults& rows) override {
    m_parts->run.ShowResults(firstRow, rows);
  }
  void ShowRunStatus() override;
  void ShowRunState() override;
  void OpenResults() override { m_parts->run.OpenResults(); }
  void OpenHistory() override { m_parts->history.Open(); }

  void OnCreate();
  void CreateParts();
  void ListenToList(ListKind kind);
  void OnDocumentChanged(DocChangeEventFlags what);
  void OnSelectionChanged(ListKind kind);
  void OnFocusChanged();
  void OnCommand(int id);
  bool IsEnabled(int id) const;
  void OnMenu(HMENU menu);
  void OnMenuSelect(int id, UINT flags);
  void RememberFocus(HWND focus);
  void RestoreFocus();
  void OnFocusLost();
  void OnDrop(HDROP drop);
  void OnDpiChanged(UINT dpi, const RECT& suggested);
  void LimitSize(MINMAXINFO& limits) const;
  void OnSystemChanged();
  void OnClose();
  void CheckSchedules();
  void RunPostponed();
  void UpdateCommands();
  void UseDpi(UINT dpi);
  void UseImages(UINT dpi);
  void Arrange();

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
  my::CWindowIcons m_icons;
  UINT m_dpi = 0;
  std::optional<int> m_titlePercent;  // as shown
  std::vector<std::function<void()>> m_postponed;
  my::CFocusMemory m_focus;
  my::CFullScreen m_fullScreen;
};

}  // namespace qlm
