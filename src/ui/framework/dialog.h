// The base class of all dialogs.
#pragma once

#include <windows.h>

#include <exception>
#include <optional>
#include <string>

#include "support/box_layout.h"
#include "support/placement.h"
#include "ui/framework/arrangement.h"
#include "ui/framework/message_loop.h"

namespace my {

// A dialog of the calling thread. A resource template gives its controls and their order, Layout() their
// places. It uses the user's message font, is never larger than the work area, and scrolls if its controls do
// not fit. With WS_THICKFRAME the user can change its size. The creator owns the object.
// The window may be destroyed before the object. The destructor destroys the window, but the derived class
// gets no message of that. An object must not be destroyed while it handles a message.
class CDialog {
 public:
  // If `placement` is not null, the dialog reads its position from it and stores it there when closed; it
  // must outlive the window.
  explicit CDialog(UINT templateId, CPlacement* placement = nullptr);
  CDialog(const CDialog&) = delete;
  CDialog& operator=(const CDialog&) = delete;
  virtual ~CDialog();

  // Returns the value passed to Close. Throws what OnInit threw, or the system error.
  int DoModal(HWND parent);

  // Shows the dialog; `loop` translates its keys while it exists. Throws what OnInit threw, or the system
  // error.
  void CreateModeless(HWND parent, CAutoMessageLoop& loop);

  // Ends a modal dialog or destroys a modeless one.
  void Close(int result);

  // Stores what the dialog remembers, as closing it does. Does nothing if there is no window.
  virtual void Remember();

  // Null if there is no window.
  HWND Hwnd() const { return m_hwnd; }
  HWND Item(int id) const { return ::GetDlgItem(m_hwnd, id); }
  std::wstring ItemText(int id) const;

  // Sets the text. If it needs more room than the window has for it, the window grows.
  void SetItemText(int id, const std::wstring& text);
  void EnableItem(int id, bool enable) const { ::EnableWindow(Item(id), enable); }

  // Enables or disables a control together with its label, the control before it.
  void EnableField(int id, bool enable) const;

  // Shows or hides a control, which then takes no room.
  void ShowItem(int id, bool show);

  // Moves the focus as the Tab key does, which selects the text of an edit control.
  void FocusItem(int id) const;
  bool IsChecked(int id) const { return ::IsDlgButtonChecked(m_hwnd, id) == BST_CHECKED; }
  void SetChecked(int id, bool checked) const {
    ::CheckDlgButton(m_hwnd, id, checked ? BST_CHECKED : BST_UNCHECKED);
  }
  UINT Dpi() const { return m_dpi; }

  // Returns the client size at which the dialog shows everything, at most `room`.
  SIZE NaturalClient(SIZE room) const { return m_arrangement.NaturalClient(room); }

 protected:
  // An exception thrown by these functions, except OnInit, is passed to ReportFailure and the dialog stays
  // open.

  // Returns the places of the controls.
  virtual CBox Layout() const = 0;

  // Returns the sizes of a control that only this dialog knows.
  virtual std::optional<CSizeRanges> SizesOf(int) const { return {}; }

  // Called when the dialog has its position and size. Returns whether the system sets the focus to the first
  // control.
  virtual bool OnInit() { return true; }
  virtual void OnOk() { Close(IDOK); }
  virtual void OnCancel() { Close(IDCANCEL); }

  // Handles other commands of controls and menus. Returns whether the command was handled.
  virtual bool OnCommand(int id, int code);

  // Returns the result of the notification if it was handled.
  virtual std::optional<LRESULT> OnNotify(const NMHDR& header);

  // Called for every message before the base class handles it.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  // Called when controls and font have their new sizes.
  virtual void OnDpiChanged() {}

  // Called when the controls have new places.
  virtual void OnArranged() {}

  // Called before the window is destroyed.
  virtual void OnClosed(int result);

 private:
  static INT_PTR CALLBACK Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> Command(int id, int code);
  BOOL Init() noexcept;
  void InitLayout();
  void InitPlacement();
  CRect InitialBounds() const;
  void PlaceFilled();
  void ChangeDpi(UINT dpi, const RECT& suggested);
  void OnMetrics();
  void Resize(const CRect& bounds);
  void Refit();
  SIZE Room() const;
  SIZE OuterSize(SIZE client) const;
  bool HasStyle(DWORD style) const { return (::GetWindowLongW(m_hwnd, GWL_STYLE) & style) != 0; }
  bool IsResizable() const { return HasStyle(WS_THICKFRAME); }
  bool IsPage() const { return HasStyle(WS_CHILD); }
  void ToggleMaximized() const;
  void RethrowFailure();
  void OnDestroy();

  UINT m_templateId;
  CPlacement* m_placement;
  HWND m_hwnd = nullptr;
  bool m_modal = false;
  int m_result = IDCANCEL;
  std::exception_ptr m_initFailure;
  UINT m_dpi = 0;
  bool m_ready = false;  // after OnInit
  CArrangement m_arrangement;
  CTranslation m_translation;
};

}  // namespace my
