#include "platform/win32/win32_console.h"

#include <windows.h>

#include <atomic>

#include "support/strings.h"

namespace my {
namespace {

std::atomic<bool> interruptRequested = false;

BOOL WINAPI OnControl(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  interruptRequested = true;
  return TRUE;
}

HANDLE Handle(IConsole::Stream stream) {
  return ::GetStdHandle(stream == IConsole::Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

// Writes all of `rest` by repeated calls, because a call may write only a part or fail.
void WriteAll(HANDLE handle, auto rest, auto write) {
  DWORD written = 0;
  while (!rest.empty() && write(handle, rest.data(), static_cast<DWORD>(rest.size()), &written, nullptr) &&
         written != 0) {
    rest.remove_prefix(written);
  }
}

}  // namespace

CWin32Console::CWin32Console() {
  ::SetConsoleCtrlHandler(OnControl, TRUE);
}
CWin32Console::~CWin32Console() {
  ::SetConsoleCtrlHandler(OnControl, FALSE);
}

bool CWin32Console::IsTerminal(Stream stream) const {
  DWORD mode = 0;
  return ::GetConsoleMode(Handle(stream), &mode) != 0;
}

void CWin32Console::Write(Stream stream, std::wstring_view text) {
  const HANDLE handle = Handle(stream);
  if (IsTerminal(stream)) return WriteAll(handle, text, &::WriteConsoleW);
  const std::string bytes = Utf8FromWide(text);
  WriteAll(handle, std::string_view(bytes), &::WriteFile);
}

std::optional<std::wstring> CWin32Console::ReadLine() {
  const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
  std::string line;
  char byte = 0;
  DWORD read = 0;
  bool any = false;
  while (::ReadFile(input, &byte, 1, &read, nullptr) && read == 1) {
    any = true;
    if (byte == '\n') break;
    line += byte;
  }
  if (!any) return {};
  if (line.ends_with('\r')) line.pop_back();
  return WideFromUtf8(line);
}

bool CWin32Console::InterruptRequested() const {
  return interruptRequested;
}

}  // namespace my
