// Shows a run while it goes on, and its verdict afterwards, between the lists and the status bar.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "ui/framework/gdi.h"
#include "ui/framework/window.h"
#include "ui/look/state_icons.h"
#include "ui/main_window/status_bar.h"
#include "ui/models/run_panel_texts.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CUISetting;

// The button for the results sends ID_RESULTS to the parent.
class CRunPanel : public my::CWindow {
 public:
  // Both must outlive the panel.
  CRunPanel(const my::IMessageTexts& texts, const CUISetting& setting) : m_texts(texts), m_setting(setting) {}

  // Creates the panel hidden.
  void CreateIn(HWND parent);

  // Shows the panel for a new run.
  void Open();
  void ShowRun(const CRunPanelTexts& texts);  // in the panel if the user has not closed it
  void ShowPercent(int percent, RunHealth health) const;
  void ShowVerdict(const CVerdict& verdict);  // also if the user has closed the panel
  void Hide();

  // Returns the height that the panel needs, at most about `room`; 0 if it is hidden.
  int HeightFor(int width, int room);

  // Called when the panel has been shown or hidden.
  std::function<void()> onShown;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // The lines of the two texts above the file; 0: hidden.
  struct CLines {
    int run = 1;
    int row = 1;
  };

  HWND AddControl(const wchar_t* className, uint32_t textId, DWORD style, int id) const;
  void Show();
  void Redraw() const;
  void UseDpi(UINT dpi);
  void Arrange() const;
  int Height(const CLines& lines) const;
  int LinesOf(HWND text, uint32_t sampleId, int width) const;
  int ButtonHeight() const;
  int IconRoom() const;
  void OnButton(WPARAM command, LPARAM button);
  void Paint();
  LRESULT ColorVerdict(HDC dc) const;
  int Px(int at96) const;

  const my::IMessageTexts& m_texts;
  const CUISetting& m_setting;
  HWND m_run = nullptr;
  HWND m_progress = nullptr;
  HWND m_row = nullptr;
  HWND m_file = nullptr;
  HWND m_results = nullptr;
  HWND m_close = nullptr;
  bool m_shown = false;
  std::optional<ResultState> m_verdict;  // nullopt during a run
  CLines m_lines;
  CStateIcons m_icons;
  UINT m_dpi = 0;
  int m_lineHeight = 0;
  my::CFont m_font;
  my::CFont m_boldFont;
};

}  // namespace qlm
