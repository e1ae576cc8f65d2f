#pragma once

#include <windows.h>

#include <memory>

#include "app/history_loader.h"
#include "ui/models/last_success.h"

namespace qlm {

class CApplication;
class CDialogs;
class CMainView;

// Reads the history at the start and after runs, and shows it: the last success in the task list, everything
// in a window of its own.
class CHistoryPresenter {
 public:
  // All arguments must outlive the presenter, and the presenter the windows of the view.
  CHistoryPresenter(CApplication& app, CMainView& view, CDialogs& dialogs);

  // Starts to read. `message` is posted to the frame, which must then call OnLoaded.
  void Begin(HWND frame, UINT message);
  void Load();  // reads again; does nothing before Begin
  void OnLoaded();
  void Open();

 private:
  CApplication& m_app;
  CMainView& m_view;
  CDialogs& m_dialogs;
  CLastSuccess m_lastSuccess;
  std::unique_ptr<CHistoryLoader> m_loader;
};

}  // namespace qlm
