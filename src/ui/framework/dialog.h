// The base of every dialog.
#pragma once

#include <windows.h>

#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "support/placement.h"
#include "ui/framework/gdi.h"
#include "ui/framework/layout.h"
#include "ui/framework/message_loop.h"

namespace my {

// One dialog of the calling thread, from a template of the program's resources. Its font is the user's
// message font; the template gives the proportions, and the smallest size of a dialog with WS_THICKFRAME.
// The creator owns the object; the window may go first. The destructor destroys the window without the
// derived class seeing it. An object must not be destroyed while it handles a message.
class CDialog {
 public:
  // `placement`, when given, is where the dialog takes its place from and puts it back as its window goes;
  // it must outlive the window.
  explicit CDialog(UINT templateId, CPlacement* placement = nullptr);
  CDialog(const CDialog&) = delete;
  CDialog& operator=(const CDialog&) = delete;
  virtual ~CDialog();

  // Answers what the dialog was closed with. Throws what OnInit threw, else the system's error.
  int DoModal(HWND parent);

  // Shows the dialog; `loop` translates its keys as long as it is there. Throws as DoModal.
  void CreateModeless(HWND parent, CAutoMessageLoop& loop);

  // Ends a modal dialog, destroys a modeless one.
  void Close(int result);

  // Keeps what the dialog remembers, as closing it does. Does nothing while there is no window.
  virtual void Remember();

  // Null while there is no window.
  HWND Hwnd() const { return m_hwnd; }
  HWND Item(int id) const { return ::GetDlgItem(m_hwnd, id); }
  std::wstring ItemText(int id) const;
  void SetItemText(int id, const std::wstring& text) const;
  void EnableItem(int id, bool enable) const { ::EnableWindow(Item(id), enable); }

  // Moves the focus as the Tab key does: the text of an edit control is selected.
  void FocusItem(int id) const;
  bool IsChecked(int id) const { return ::IsDlgButtonChecked(m_hwnd, id) == BST_CHECKED; }
  void SetChecked(int id, bool checked) const {
    ::CheckDlgButton(m_hwnd, id, checked ? BST_CHECKED : BST_UNCHECKED);
  }
  UINT Dpi() const { return m_dpi; }

 protected:
  // An exception of any of these but OnInit goes to ReportFailure, and the dialog stays.

  virtual std::vector<CAnchor> Anchors() const { return {}; }

  // The dialog has its place and size. Answers whether the first control gets the focus.
  virtual bool OnInit() { return true; }
  virtual void OnOk() { Close(IDOK); }
  virtual void OnCancel() { Close(IDCANCEL); }

  // Other commands, of controls and menus; answers whether it was one of the dialog's.
  virtual bool OnCommand(int id, int code);

  // The result of a notification that was handled.
  virtual std::optional<LRESULT> OnNotify(const NMHDR& header);

  // Any other message; comes before the base class looks at it.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  // Controls and font have their new sizes.
  virtual void OnDpiChanged() {}

  // The window is about to go.
  virtual void OnClosed(int result);

 private:
  static INT_PTR CALLBACK Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> Command(int id, int code);
  BOOL Init() noexcept;
  void InitLayout();
  void InitPlacement();
  void ChangeDpi(UINT dpi, const RECT& suggested);
  void UseFont();
  void LimitSize(MINMAXINFO& limits) const;
  SIZE SmallestSize() const;
  bool IsResizable() const;
  void RethrowFailure();
  void OnDestroy();

  UINT m_templateId;
  CPlacement* m_placement;
  HWND m_hwnd = nullptr;
  bool m_modal = false;
  int m_result = IDCANCEL;
  std::exception_ptr m_initFailure;
  UINT m_dpi = 0;
  CFont m_font;
  CDialogUnits m_units;
  CLayout m_layout;
  CTranslation m_translation;
};

}  // namespace my
