#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/win32/notification.h"
#include "ui/main_window/run_indicator.h"
#include "ui/main_window/status_bar.h"
#include "ui/models/result_list_model.h"
#include "ui/models/run_panel_texts.h"

namespace qlm {

class CApplication;
class CDialogs;
class CMainView;
class CRunPanel;
class CToolBar;

// Shows the run in the parts of the main window and in the taskbar.
class CRunPresenter {
 public:
  // All arguments must outlive the presenter. The windows of the bars and the view must exist before the
  // first call.
  CRunPresenter(CApplication& app, CMainView& view, const CToolBar& toolBar, CStatusBar& statusBar,
                CRunPanel& panel, CDialogs& dialogs);

  void ClearResults();
  void ShowResults(size_t firstRow, const CResults& rows);
  void OpenResults();
  void ShowStatus(HWND frame);
  void ShowCounts() const;  // shows the numbers of tasks, destinations and errors

  // Returns the percentage to show in the title; nullopt if there is none.
  std::optional<int> Percent() const;

  // Another document was opened.
  void OnNewDocument();

  // The window has come to the front, or is being destroyed.
  void RemoveNotice() { m_notice.reset(); }

  // Handles an event of the notification, which is sent as `kNoticeMessage` to the frame.
  void OnNotice(HWND frame, LPARAM event);
  static constexpr UINT kNoticeMessage = WM_APP + 3;

  // Shows whether a run is active. Returns whether one has ended since the last call.
  bool ShowState(HWND frame);

  // Opens the list of a test run, or the results of a run with errors, unless a dialog is open in front of
  // the frame.
  void OpenOutcome(HWND frame);

 private:
  std::wstring StatusText() const;
  std::wstring CountsText() const;
  std::wstring PowerOffText() const;
  void RefreshLists(size_t firstRow);
  RunHealth Health() const;
  void Begin();
  void End(HWND frame);
  void ShowProgress();
  void Notify(HWND frame, const CVerdict& verdict);

  CApplication& m_app;
  const my::IMessageTexts& m_texts;
  CMainView& m_view;
  const CToolBar& m_toolBar;
  CStatusBar& m_statusBar;
  CRunPanel& m_panel;
  CDialogs& m_dialogs;
  CResultListModel m_results;
  CRunIndicator m_indicator;
  std::optional<my::CNotification> m_notice;
  bool m_active = false;     // as last shown
  uint64_t m_shownTick = 0;  // of the texts in the panel, in ElapsedMs
  std::pair<size_t, Phase> m_shownRow;
};

}  // namespace qlm
