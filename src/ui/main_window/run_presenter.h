#pragma once

#include "ui/main_window/run_indicator.h"
#include "ui/models/result_list_model.h"

namespace qlm {

class CApplication;
class CDialogs;
class CMainView;
class CStatusBar;
class CToolBar;

// Shows the run in the parts of the main window and in the taskbar.
class CRunPresenter {
 public:
  // All arguments must outlive the presenter. The windows of the bars and the view must exist before the
  // first call.
  CRunPresenter(CApplication& app, CMainView& view, const CToolBar& toolBar, CStatusBar& statusBar,
                CDialogs& dialogs);

  void ClearResults();
  void ShowResults(size_t firstRow, const CResults& rows);
  void OpenResults();
  void ShowStatus(HWND frame) const;
  void ShowCounts() const;  // shows the numbers of tasks, destinations and errors

  // Shows whether a run is active. Returns whether one has ended since the last call.
  bool ShowState(HWND frame);

  // Opens the list of a test run, or the results of a run with errors.
  void OpenOutcome();

 private:
  std::wstring StatusText() const;
  std::wstring CountsText() const;
  std::wstring PowerOffText() const;
  void RefreshLists(size_t firstRow);

  CApplication& m_app;
  const my::IMessageTexts& m_texts;
  CMainView& m_view;
  const CToolBar& m_toolBar;
  CStatusBar& m_statusBar;
  CDialogs& m_dialogs;
  CResultListModel m_results;
  CRunIndicator m_indicator;
  bool m_active = false;  // as last shown
};

}  // namespace qlm
