// qlm_start_bench FOLDER [ROUNDS]: times the start of the program with documents, until its main window is
// painted, against the start of an empty window. Both programs are in the folder.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <exception>
#include <stdexcept>
#include <string>

#include "harness.h"
#include "platform/win32/handle.h"
#include "platform/win32/win32_file_system.h"
#include "support/paths.h"
#include "support/strings.h"

namespace {

constexpr int kTasks = 1000;
constexpr int kDsts = 8;
constexpr DWORD kLimitMs = 60'000;

// Returns a document whose tasks use four destinations each.
std::string Document(int tasks, const std::wstring& folder) {
  const std::string path = my::Utf8FromWide(folder);
  std::string text = "<QuillmoorDoc><Version>1.0.0.0</Version><Dsts>";
  for (int i = 0; i < kDsts; ++i) {
    text += "<Dst><Folder>" + path + "\\d" + std::to_string(i) +
            "</Folder><Type>FOLDER</Type><Pattern>&lt;ID&gt;_&lt;Y&gt;</Pattern></Dst>";
  }
  text += "</Dsts><Tasks>";
  for (int i = 0; i < tasks; ++i) {
    text += "<Task><Id>task " + std::to_string(i) + "</Id><Path>" + path + "</Path><Dsts>";
    for (int dst = i; dst < i + 4; ++dst) text += "<Dst>" + std::to_string(dst % kDsts) + "</Dst>";
    text += "</Dsts><FilterPath/></Task>";
  }
  return text + "</Tasks></QuillmoorDoc>";
}

// The visible window of a process, once the process has created it.
HWND WindowOf(DWORD process) {
  struct CSearch {
    DWORD process;
    HWND found;
  } search{process, nullptr};
  const auto visit = [](HWND window, LPARAM parameter) -> BOOL {
    auto& wanted = *reinterpret_cast<CSearch*>(parameter);
    DWORD owner = 0;
    ::GetWindowThreadProcessId(window, &owner);
    if (owner == wanted.process && ::IsWindowVisible(window)) wanted.found = window;
    return wanted.found == nullptr;
  };
  ::EnumWindows(visit, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// Returns whether the window and its controls wait for no painting.
bool IsPainted(HWND window) {
  bool painted = ::GetUpdateRect(window, nullptr, FALSE) == FALSE;
  const auto visit = [](HWND child, LPARAM parameter) -> BOOL {
    auto& all = *reinterpret_cast<bool*>(parameter);
    if (::IsWindowVisible(child) && ::GetUpdateRect(child, nullptr, FALSE)) all = false;
    return all;
  };
  ::EnumChildWindows(window, visit, reinterpret_cast<LPARAM>(&painted));
  return painted;
}

// Returns whether the thread of the window handles messages and has painted it.
bool IsReady(HWND window) {
  DWORD_PTR result = 0;
  return window && ::SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kLimitMs, &result) != 0 &&
         IsPainted(window);
}

// Returns the milliseconds until the window of the program is ready, and closes it.
double StartMs(std::wstring command) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  HWND window = nullptr;
  const double ms = bench::TimeMs([&] {
    if (!::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &started))
      throw std::runtime_error("cannot start " + my::Utf8FromWide(command));
    const ULONGLONG end = ::GetTickCount64() + kLimitMs;
    while (!IsReady(window)) {
      if (::GetTickCount64() > end) throw std::runtime_error("no window of " + my::Utf8FromWide(command));
      ::Sleep(1);
      window = WindowOf(started.dwProcessId);
    }
  });
  const my::CKernelHandle process(started.hProcess);
  const my::CKernelHandle thread(started.hThread);
  ::PostMessageW(window, WM_CLOSE, 0, 0);
  if (::WaitForSingleObject(process.Get(), kLimitMs) != WAIT_OBJECT_0)
    throw std::runtime_error("does not end");
  return ms;
}

std::wstring Quoted(const std::wstring& path) {
  return L"\"" + path + L"\"";
}

// Writes a document into the folder and returns a side that opens it with the program there.
bench::CSide Opening(const std::string& name, const std::wstring& folder, int tasks, double target) {
  const std::wstring path = my::JoinPath(folder, std::to_wstring(tasks) + L".qlmr");
  my::CWin32FileSystem real;
  my::IFileSystem& files = real;
  if (files.Kind(path) != my::PathKind::None) files.RemoveFile(path);
  const auto file = files.CreateNewFile(path);
  file->Write(Document(tasks, folder));
  file->Close();
  const std::wstring command = Quoted(my::JoinPath(folder, L"Quillmoor.exe")) + L" " + Quoted(path);
  return {name, target, [command] { return StartMs(command); }};
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc < 2) return 2;
  const std::wstring folder = argv[1];
  const int rounds = argc > 2 ? std::max(1, static_cast<int>(std::wcstol(argv[2], nullptr, 10))) : 15;
  try {
    const std::wstring empty = Quoted(my::JoinPath(folder, L"qlm_empty_window.exe"));
    const bench::CSide baseline{"empty window", 0, [empty] { return StartMs(empty); }};
    const bench::CSide controls{"window of plain controls", 0,
                                [empty] { return StartMs(empty + L" --controls"); }};
    const auto small = Opening("program, 1 task", folder, 1, 0);
    const auto large = Opening("program, 1000 tasks", folder, kTasks, 1.5);
    bench::Compare(baseline, {controls, small, large}, rounds);
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
