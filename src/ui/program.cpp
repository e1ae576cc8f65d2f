#include "ui/program.h"

#include <windows.h>

#include "app/application.h"
#include "platform/kept_threads.h"
#include "platform/win32/msxml_dom.h"
#include "platform/win32/win32_ansi_codec.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_hash.h"
#include "platform/win32/win32_known_folders.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_power.h"
#include "platform/win32/win32_process.h"
#include "platform/win32/win32_shell.h"
#include "platform/win32/win32_task_scheduler.h"
#include "platform/win32/win32_threads.h"
#include "ui/dialogs/message_box.h"
#include "ui/framework/failures.h"
#include "ui/framework/gdiplus.h"
#include "ui/framework/message_loop.h"
#include "ui/main_window/document_clipboard.h"
#include "ui/main_window/main_frame.h"

namespace qlm {
namespace {

// The ports that jobs and the threads for lookups, plans and advice use.
struct CSharedPorts {
  my::CWin32FileSystem files;
  my::CWin32Clock clock;
  my::CWin32AnsiCodec ansi;
  my::CWin32MessageTexts texts;
  my::CWin32Process process;
  my::CWin32Threads threads;
  my::CKeptThreads helpers{threads};
};

// Never destroyed, because an unresponsive network may block such a thread until the process ends.
CSharedPorts& SharedPorts() {
  static auto* const ports = new CSharedPorts;
  return *ports;
}

// The Windows ports of the commands.
struct CWin32Ports {
  my::CMsxmlDom dom;
  CSharedPorts& shared = SharedPorts();
  my::CWin32KnownFolders folders;
  my::CWin32Power power;
  my::CWin32Hash hash;
  my::CWin32Shell shell;
  my::CWin32TaskScheduler scheduler;
  CDocumentClipboard clipboard;

  CAppPorts Ports() {
    return {{shared.files, shared.clock, shared.ansi, shared.texts, shared.process, &shared.helpers},
            dom,
            shared.threads,
            folders,
            power,
            hash,
            shell,
            scheduler,
            clipboard};
  }
};

}  // namespace

int RunDesktopProgram(const std::wstring& commandLine, int showCommand) {
  my::CAutoMessageLoop loop;
  const my::CGdiplus gdiplus;
  CWin32Ports ports;
  my::CMessageBox box;
  CSettings settings(ports.shared.clock.TickCount());
  CDocument document;
  CMainFrame frame(loop, showCommand);
  CApplication application(ports.Ports(), settings, document, box, frame, frame.Dialogs(), commandLine);
  // Failures in window procedures are shown like those of commands.
  const my::CFailureHandler before =
      my::SetFailureHandler([&](std::exception_ptr failure) { application.ShowFailure(failure); });
  if (frame.Create(application)) {
    box.SetOwner(frame.Hwnd());
    ports.clipboard.SetOwner(frame.Hwnd());
  }
  const int exitCode = frame.Hwnd() ? loop.Run() : 0;
  my::SetFailureHandler(before);
  return exitCode;
}

}  // namespace qlm
