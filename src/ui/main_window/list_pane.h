// A list of the main view, with its title and edit buttons above.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ui/framework/gdi.h"
#include "ui/framework/window.h"
#include "ui/look/see_through_list.h"
#include "ui/models/background_model.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CPaneButton {
  int id = 0;           // command id
  uint32_t textId = 0;  // text id
};

struct CPaneSpec {
  uint32_t titleId = 0;
  uint32_t hintId = 0;  // shown instead of an empty list
  std::vector<CPaneButton> hintButtons;
  std::vector<CPaneButton> buttons;
};

// The buttons send WM_COMMAND to the parent.
class CListPane : public my::CWindow {
 public:
  // All arguments must outlive the pane.
  CListPane(const my::IMessageTexts& texts, CSeeThroughList& list, CBackground& background)
      : m_texts(texts), m_background(background), m_list(list) {}

  void CreateIn(HWND parent, int paneId, int listId, my::CListView::Boxes boxes, CPaneSpec spec);

  // Sets fonts and places of the controls. Must be called once before the pane is shown. Until then changes
  // of its size and of its controls cost little.
  void Prepare();

  my::CListView& List() { return m_list; }
  const my::CListView& List() const { return m_list; }

  const std::vector<CPaneButton>& Buttons() const { return m_spec.buttons; }
  void EnableButton(int id, bool enable) const;

  // Shows the hint instead of the list.
  void ShowHint(bool show);

  // Shows a line of text below the list; empty: none.
  void ShowDescription(const std::wstring& text);

  // Must be called when the background has changed.
  void UseBackground();

  // Adds the parts of the pane below its rows, in client coordinates of `view`.
  void AddRooms(std::vector<CRoom>& rooms, HWND view, bool upper) const;

  // Called when the controls have been moved.
  std::function<void()> onArranged;

  // Called when the mouse enters the pane or its list gets the focus.
  std::function<void()> onAttention;

  bool Covers(POINT screen) const;

  // Sets the focus to the list, or to the first button of the hint.
  void SetFocus() const;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  HWND AddControl(const wchar_t* className, uint32_t textId, DWORD style, int id) const;
  void UseDpi(UINT dpi);
  void Arrange() const;
  int ArrangeHeader(int width) const;  // returns its height
  void ArrangeHint(const RECT& area) const;
  void ArrangeHintButtons(int top, int width) const;
  int HintButtonWidth(HWND button) const;
  bool IsHintShown() const { return (::GetWindowLongW(m_hint, GWL_STYLE) & WS_VISIBLE) != 0; }
  int ArrangeDescription(const SIZE& client) const;  // returns its top
  LRESULT ColorStatic(HDC dc, HWND control);
  void OnButton(WPARAM command, HWND button);
  void Erase(HDC dc);
  RECT EmptyArea() const;
  RECT TextArea(HWND control, const RECT& area) const;

  const my::IMessageTexts& m_texts;
  CBackground& m_background;
  CSeeThroughList& m_list;
  CPaneSpec m_spec;
  HWND m_title = nullptr;
  HWND m_hint = nullptr;
  std::vector<HWND> m_hintButtons;
  HWND m_description = nullptr;
  std::vector<HWND> m_buttons;
  UINT m_dpi = 0;
  HWND m_clicked = nullptr;  // the child on which the mouse was pressed last
  my::CFont m_font;
  my::CFont m_titleFont;
};

}  // namespace qlm
