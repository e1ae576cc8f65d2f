#pragma once

#include "platform/win32/win32_ansi_codec.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_process.h"

namespace test {

// The Windows ports of the engine, except the file system.
struct CWin32Ports {
  my::CWin32Clock clock;
  my::CWin32AnsiCodec ansi;
  my::CWin32MessageTexts texts;
  my::CWin32Process process;
};

}  // namespace test
