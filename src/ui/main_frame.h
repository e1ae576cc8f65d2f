// The main window.
#pragma once

#include "app/windows.h"
#include "ui/dialogs.h"
#include "ui/framework/message_loop.h"
#include "ui/framework/window.h"

namespace qlm {

class CApplication;

class CMainFrame : public my::CWindow, public IMainWindow {
 public:
  // `showCommand` is how the window is to appear.
  CMainFrame(my::CAutoMessageLoop& loop, int showCommand);

  IDialogs& Dialogs() { return m_dialogs; }

  // Creates the window, in the course of which the application starts. Answers false, after it was told, when
  // there is no window. The application outlives it.
  bool Create(CApplication& application);

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  class CNoList : public IListState {
   public:
    std::optional<size_t> FocusedRow() const override { return {}; }
    std::vector<size_t> SelectedRows() const override { return {}; }
    void Focus() override {}
  };

  IListState& TaskList() override { return m_list; }
  IListState& DstList() override { return m_list; }
  void RedrawLists() override {}
  void ApplySettings(const CSettings& settings) override;
  void StoreSettings(CSettings& settings) override;
  void UpdateTitle() override {}
  void PostClose() override { ::PostMessageW(Hwnd(), WM_CLOSE, 0, 0); }
  void StartTimer(uint32_t periodMs) override;
  void StopTimer() override;
  void ClearResults() override {}
  void ShowResults(size_t, const CResults&) override {}
  void ShowRunStatus() override {}
  void ShowRunState() override {}

  my::CWindowClass m_class;
  my::CAutoMessageLoop& m_loop;
  int m_showCommand;
  CApplication* m_app = nullptr;
  CDialogs m_dialogs;
  CNoList m_list;
};

}  // namespace qlm
