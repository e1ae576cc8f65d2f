#pragma once

#include "app/command.h"
#include "platform/win32/com.h"
#include "platform/win32/msxml_dom.h"
#include "platform/win32/win32_ansi_codec.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_hash.h"
#include "platform/win32/win32_known_folders.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_process.h"
#include "support/fake_scheduler.h"
#include "support/fake_system.h"

namespace test {

// The Windows ports, with doubles of those that would change the system.
struct CWin32Ports {
  // Returns all ports of the program.
  qlm::CAppPorts With(my::IFileSystem& files, my::IThreads& threads, const my::IKnownFolders& folders,
                      qlm::IClipboard& clipboard) {
    const qlm::CEnginePorts engine{files, clock, ansi, texts, process};
    return {engine, dom, threads, folders, power, hash, shell, scheduler, clipboard};
  }

  my::CComApartment com;
  my::CWin32Clock clock;
  my::CWin32AnsiCodec ansi;
  my::CWin32MessageTexts texts;
  my::CWin32Process process;
  my::CMsxmlDom dom;
  CFakePower power;
  my::CWin32Hash hash;
  CFakeShell shell;
  CFakeScheduler scheduler;
};

}  // namespace test
