// One list of the main view, with its title and the buttons of its edits above it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ui/framework/gdi.h"
#include "ui/framework/window.h"
#include "ui/look/see_through_list.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CPaneButton {
  int id = 0;           // of its WM_COMMAND
  uint32_t textId = 0;  // in the string table
};

struct CPaneSpec {
  uint32_t titleId = 0;
  uint32_t hintId = 0;  // in place of an empty list
  CPaneButton hintButton;
  std::vector<CPaneButton> buttons;
};

// What the user does with the buttons goes to the parent as WM_COMMAND.
class CListPane : public my::CWindow {
 public:
  // All outlive the pane.
  CListPane(const my::IMessageTexts& texts, CSeeThroughList& list, CBackground& background)
      : m_texts(texts), m_background(background), m_list(list) {}

  void CreateIn(HWND parent, int paneId, int listId, my::CListView::Boxes boxes, CPaneSpec spec);

  my::CListView& List() { return m_list; }
  const my::CListView& List() const { return m_list; }

  const std::vector<CPaneButton>& Buttons() const { return m_spec.buttons; }
  void EnableButton(int id, bool enable) const;

  // Whether the hint stands in place of the list.
  void ShowHint(bool show);

  // A line below the list; empty: none.
  void ShowDescription(const std::wstring& text);

  // The background is another one.
  void UseBackground();

  // The user has turned to this pane: the pointer came over it, or its list got the keyboard.
  std::function<void()> onAttention;

  // Where the keyboard goes: the list, or the hint's button.
  void SetFocus() const;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  HWND AddControl(const wchar_t* className, uint32_t textId, DWORD style, int id) const;
  void UseDpi(UINT dpi);
  void Arrange() const;
  int ArrangeHeader(int width) const;  // answers its height
  void ArrangeHint(const RECT& area) const;
  int ArrangeDescription(const SIZE& client) const;  // answers its top
  LRESULT ColorStatic(HDC dc, HWND control);
  void Erase(HDC dc);
  SIZE TextSize(HWND control) const;
  RECT TextArea(HWND control, const RECT& area) const;

  const my::IMessageTexts& m_texts;
  CBackground& m_background;
  CSeeThroughList& m_list;
  CPaneSpec m_spec;
  HWND m_title = nullptr;
  HWND m_hint = nullptr;
  HWND m_hintButton = nullptr;
  HWND m_description = nullptr;
  std::vector<HWND> m_buttons;
  UINT m_dpi = 0;
  my::CFont m_font;
  my::CFont m_titleFont;
};

}  // namespace qlm
