// The bars of the main window: tools above, the state of the run below.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/backup_thread.h"
#include "ui/framework/gdi.h"
#include "ui/look/tool_images.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

// Buttons with their pictures and texts; their commands go to the parent.
class CToolBar {
 public:
  explicit CToolBar(const my::IMessageTexts& texts) : m_texts(texts) {}

  void CreateIn(HWND parent);
  HWND Hwnd() const { return m_bar; }
  int Height() const;

  void Enable(int id, bool enable) const;
  void Change(int id, uint32_t textId, ToolIcon icon) const;
  std::vector<int> Ids() const;
  // Both outlive the bar, or its next use of others.
  void Use(HFONT font, const CToolImages& images) const;
  void Resize() const { ::SendMessageW(m_bar, TB_AUTOSIZE, 0, 0); }

 private:
  const my::IMessageTexts& m_texts;
  HWND m_bar = nullptr;
};

// How a run goes, or went. Incomplete: without an error, but folders could not be listed.
enum class RunHealth { Good, Incomplete, Failed };

class CStatusBar {
 public:
  void CreateIn(HWND parent);
  int Height() const;

  void ShowRun(const std::wstring& text, const CRunProgress& progress, RunHealth health) const;
  void ShowText(const std::wstring& text) const;  // in place of the run's, until that is shown again
  void ShowCounts(const std::wstring& text) const;
  void UseFont(HFONT font) const { ::SendMessageW(m_bar, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }
  void Resize(UINT dpi) const;

 private:
  HWND m_bar = nullptr;
  HWND m_progress = nullptr;
};

}  // namespace qlm
