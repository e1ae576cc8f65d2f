#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ui/look/tool_images.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

// The toolbar: buttons with images and, if the window is wide enough, texts. Their commands are sent to the
// parent.
class CToolBar {
 public:
  explicit CToolBar(const my::IMessageTexts& texts) : m_texts(texts) {}

  void CreateIn(HWND parent);
  HWND Hwnd() const { return m_bar; }
  int Height() const;

  void Enable(int id, bool enable) const;
  void Change(int id, uint32_t textId, ToolIcon icon) const;
  std::vector<int> Ids() const;
  // Both must stay valid until the bar is destroyed or gets others.
  void Use(HFONT font, const CToolImages& images);
  void Resize();  // to the width of the parent

 private:
  void ShowTexts(bool show);
  int ButtonsWidth() const;

  const my::IMessageTexts& m_texts;
  HWND m_bar = nullptr;
  bool m_showsTexts = true;
  int m_widthWithTexts = 0;
};

}  // namespace qlm
