#include "platform/win32/win32_console.h"

#include <windows.h>

#include <atomic>
#include <vector>

#include "support/strings.h"

namespace my {
namespace {

std::atomic<bool> interruptRequested = false;

BOOL WINAPI OnControl(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  interruptRequested = true;
  return TRUE;
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != 0;
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

std::optional<std::wstring> ReadTypedLine(HANDLE input) {
  std::wstring line;
  wchar_t part[256];
  DWORD read = 0;
  while (!line.ends_with(L'\n') && ::ReadConsoleW(input, part, ARRAYSIZE(part), &read, nullptr) && read > 0)
    line.append(part, read);
  if (line.empty()) return {};
  while (line.ends_with(L'\n') || line.ends_with(L'\r')) line.pop_back();
  return line;
}

}  // namespace

CWin32Console::CWin32Console() {
  ::SetConsoleCtrlHandler(OnControl, TRUE);
}
CWin32Console::~CWin32Console() {
  ::SetConsoleCtrlHandler(OnControl, FALSE);
}

bool CWin32Console::IsTerminal(Stream stream) const {
  return IsConsole(Handle(stream));
}

void CWin32Console::Write(Stream stream, std::wstring_view text) {
  const HANDLE handle = Handle(stream);
  if (IsTerminal(stream)) return WriteAll(handle, text, &::WriteConsoleW);
  const std::string bytes = Utf8FromWide(text);
  WriteAll(handle, std::string_view(bytes), &::WriteFile);
}

std::optional<std::wstring> CWin32Console::ReadLine() {
  constexpr wchar_t kByteOrderMark = 0xFEFF;
  const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
  if (IsConsole(input)) return ReadTypedLine(input);
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
  std::wstring text = WideFromUtf8(line);
  if (text.starts_with(kByteOrderMark)) text.erase(0, 1);
  return text;
}

bool CWin32Console::InterruptRequested() const {
  return interruptRequested;
}

// FreeConsole closes the handles of the console, but they remain those of the standard streams: a file that
// is opened later may get the same number, and the output would be written into it.
void CWin32Console::Detach() {
  std::vector<DWORD> streams{STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
  std::erase_if(streams, [](DWORD stream) { return !IsConsole(::GetStdHandle(stream)); });
  ::FreeConsole();
  for (const DWORD stream : streams) ::SetStdHandle(stream, nullptr);
}

}  // namespace my
