#pragma once

#include <windows.h>

#include <string>

#include "engine/backup_thread.h"

namespace qlm {

// The state of the last run. Incomplete: no errors, but folders could not be listed.
enum class RunHealth { Good, Incomplete, Failed };

WPARAM BarStateOf(RunHealth health);  // of a progress bar

class CStatusBar {
 public:
  void CreateIn(HWND parent);
  int Height() const;

  void ShowRun(const std::wstring& text, const CRunProgress& progress, RunHealth health) const;
  void ShowText(const std::wstring& text) const;  // shown until the run's text is shown again
  void ShowCounts(const std::wstring& text) const;

  // Shows a button, which sends ID_KEEP_POWER to the parent; empty text: none.
  void ShowPowerOff(const std::wstring& text);
  void UseFont(HFONT font) const;
  void Resize(UINT dpi);

 private:
  void PlaceButton(int right) const;

  HWND m_bar = nullptr;
  HWND m_progress = nullptr;
  HWND m_powerOff = nullptr;  // beside the bar, because a bar does not forward the commands of its children
  std::wstring m_powerOffText;
  UINT m_dpi = 0;
};

}  // namespace qlm
