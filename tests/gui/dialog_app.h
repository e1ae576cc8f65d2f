// The program on the real ports but without its main window: who uses it is played by a script.
#pragma once

#include "app/application.h"
#include "gui/gui.h"
#include "platform/win32/msxml_dom.h"
#include "platform/win32/win32_ansi_codec.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_hash.h"
#include "platform/win32/win32_known_folders.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_process.h"
#include "support/fake_system.h"
#include "support/fake_windows.h"

namespace test {

// `TFiles` is the disk: the real one, or one in memory.
template <class TFiles>
struct CDialogAppOn {
  TFiles files;
  my::CWin32Clock clock;
  my::CWin32AnsiCodec ansi;
  my::CWin32MessageTexts texts;
  my::CWin32Process process;
  my::CMsxmlDom dom;
  CManualThreads threads;
  my::CWin32KnownFolders folders;
  CFakePower power;
  my::CWin32Hash hash;
  CFakeShell shell;
  CFakeClipboard clipboard;
  CFakeWindow window;
  CFakeDialogs dialogs;
  qlm::CSettings settings{0};
  qlm::CDocument openDocument;
  qlm::CApplication app{
      {{files, clock, ansi, texts, process}, dom, threads, folders, power, hash, shell, clipboard},
      settings,
      openDocument,
      dialogs,
      window,
      dialogs,
      L"Quillmoor.exe"};
  my::CAutoMessageLoop loop;

  qlm::CAppContext& Context() { return app.Context(); }
  qlm::CSettings& Settings() { return app.Settings(); }

  // Whether the last message box since the last question has the text.
  bool Said(uint32_t id) {
    const auto boxes = std::exchange(dialogs.boxes, {});
    return !boxes.empty() && boxes.back().find(texts.Text(id)) != std::wstring::npos;
  }
};

using CDialogApp = CDialogAppOn<my::CWin32FileSystem>;

// As if the user did it. A control that is disabled is left alone.
inline void Click(HWND dialog, int id) {
  const HWND control = ::GetDlgItem(dialog, id);
  if (::IsWindowEnabled(control)) ::SendMessageW(control, BM_CLICK, 0, 0);
}

inline void Type(HWND dialog, int id, const wchar_t* text) {
  HWND edit = ::GetDlgItem(dialog, id);
  if (const HWND inner = ::FindWindowExW(edit, nullptr, L"Edit", nullptr)) edit = inner;  // of a combo box
  if (!::IsWindowEnabled(edit)) return;
  ::SendMessageW(edit, EM_SETSEL, 0, -1);
  ::SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
}

inline void Choose(HWND dialog, int id, int item) {
  const HWND combo = ::GetDlgItem(dialog, id);
  ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
  ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
  Pump();
}

inline std::wstring TextOf(HWND dialog, int id) {
  wchar_t text[256]{};
  ::GetDlgItemTextW(dialog, id, text, static_cast<int>(std::size(text)));
  return text;
}

}  // namespace test
