// The program on the real ports, without its main window. A script plays the user.
#pragma once

#include "app/application.h"
#include "gui/gui.h"
#include "gui/win32_ports.h"
#include "platform/win32/com.h"
#include "platform/win32/msxml_dom.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_hash.h"
#include "platform/win32/win32_known_folders.h"
#include "support/fake_scheduler.h"
#include "support/fake_system.h"
#include "support/fake_windows.h"

namespace test {

// `TFiles` is the file system: the real one or one in memory.
template <class TFiles>
struct CDialogAppOn : CWin32Ports {
  my::CComApartment com;
  TFiles files;
  my::CMsxmlDom dom;
  CManualThreads threads;
  my::CWin32KnownFolders folders;
  CFakePower power;
  my::CWin32Hash hash;
  CFakeShell shell;
  CFakeScheduler scheduler;
  CFakeClipboard clipboard;
  CFakeWindow window;
  CFakeDialogs dialogs;
  qlm::CSettings settings{0};
  qlm::CDocument openDocument;
  qlm::CApplication app{
      {{files, clock, ansi, texts, process}, dom, threads, folders, power, hash, shell, scheduler, clipboard},
      settings,
      openDocument,
      dialogs,
      window,
      dialogs,
      L"Quillmoor.exe"};
  my::CAutoMessageLoop loop;

  qlm::CAppContext& Context() { return app.Context(); }
  qlm::CSettings& Settings() { return app.Settings(); }

  // Returns whether the last message box since the last call had this text.
  bool Said(uint32_t id) {
    const auto boxes = std::exchange(dialogs.boxes, {});
    return !boxes.empty() && boxes.back().find(texts.Text(id)) != std::wstring::npos;
  }
};

using CDialogApp = CDialogAppOn<my::CWin32FileSystem>;

}  // namespace test
