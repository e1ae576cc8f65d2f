// The program on the real ports, without its main window. A script plays the user.
#pragma once

#include "app/application.h"
#include "gui/gui.h"
#include "gui/win32_ports.h"
#include "platform/win32/win32_file_system.h"
#include "support/fake_windows.h"
#include "support/memory_file_system.h"

namespace test {

// `TFiles` is the file system: the real one or one in memory.
template <class TFiles>
struct CDialogAppOn : CWin32Ports {
  TFiles files;
  CManualThreads threads;
  my::CWin32KnownFolders folders;
  CFakeClipboard clipboard;
  CFakeWindow window;
  CFakeDialogs dialogs;
  qlm::CSettings settings{0};
  qlm::CDocument openDocument;
  qlm::CApplication app{
      With(files, threads, folders, clipboard), settings, openDocument, dialogs, window, dialogs, L"q.exe"};
  my::CAutoMessageLoop loop;

  qlm::CAppContext& Context() { return app.Context(); }
  qlm::CSettings& Settings() { return app.Settings(); }

  // Returns whether the last message box since the last call had this text.
  bool Said(uint32_t id) {
    const auto boxes = std::exchange(dialogs.boxes, {});
    return !boxes.empty() && Has(boxes.back(), texts.Text(id));
  }
};

using CDialogApp = CDialogAppOn<my::CWin32FileSystem>;

}  // namespace test
