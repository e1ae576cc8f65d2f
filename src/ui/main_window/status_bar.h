#pragma once

#include <windows.h>

#include <string>

#include "engine/backup_thread.h"

namespace qlm {

// The state of the last run. Incomplete: no errors, but folders could not be listed.
enum class RunHealth { Good, Incomplete, Failed };

class CStatusBar {
 public:
  void CreateIn(HWND parent);
  int Height() const;

  void ShowRun(const std::wstring& text, const CRunProgress& progress, RunHealth health) const;
  void ShowText(const std::wstring& text) const;  // shown until the run's text is shown again
  void ShowCounts(const std::wstring& text) const;
  void UseFont(HFONT font) const { ::SendMessageW(m_bar, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }
  void Resize(UINT dpi) const;

 private:
  HWND m_bar = nullptr;
  HWND m_progress = nullptr;
};

}  // namespace qlm
