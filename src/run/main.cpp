// QuillmoorRun.exe: runs a backup document without windows.
#include <windows.h>

#include <string>
#include <vector>

#include "control_ids.h"
#include "platform/kept_threads.h"
#include "platform/message_texts.h"
#include "platform/win32/app_identity.h"
#include "platform/win32/com.h"
#include "platform/win32/msxml_dom.h"
#include "platform/win32/standalone_notice.h"
#include "platform/win32/system_function.h"
#include "platform/win32/win32_ansi_codec.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_console.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_known_folders.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_power.h"
#include "platform/win32/win32_process.h"
#include "platform/win32/win32_task_scheduler.h"
#include "platform/win32/win32_threads.h"
#include "run/exit_codes.h"
#include "run/history_output.h"
#include "run/runner.h"
#include "run/schedule_removal.h"
#include "support/paths.h"
#include "text_ids.h"

namespace {

// Nobody reads the output of a scheduled run.
void NotifyFailure(const my::IMessageTexts& texts, const std::wstring& document) {
  constexpr uint32_t kLimitMs = 20'000;
  const my::CMsgArg name = std::wstring(my::LastComponent(document));
  my::CNotice notice;
  notice.kind = my::CNotice::Kind::Error;
  notice.title = texts.Text(IDS_SCHEDULE_FAILED_RUN);
  notice.text = my::MakeText(texts, IDS_SCHEDULE_SEE_HISTORY, {&name, 1});
  notice.tip = texts.Text(IDS_DISPLAY_NAME);
  notice.icon = ::LoadIconW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_QUILLMOOR));
  my::ShowStandaloneNotice(notice, kLimitMs);
}

bool IsFailure(int exitCode) {
  return exitCode == qlm::kExitErrors || exitCode == qlm::kExitUnusable;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  my::LoadOnlySystemLibraries();
  my::SetAppIdentity();
  my::CWin32Console console;
  my::CWin32MessageTexts texts;
  const qlm::CParsedOptions parsed =
      qlm::ParseOptions(std::vector<std::wstring>(argv + 1, argv + argc), texts);
  if (parsed.exitCode >= 0) {
    const bool good = parsed.exitCode == qlm::kExitDone;
    console.Write(good ? my::IConsole::Stream::Output : my::IConsole::Stream::Errors, parsed.text);
    return parsed.exitCode;
  }
  const my::CComApartment com;
  my::CMsxmlDom dom;
  my::CWin32FileSystem files;
  my::CWin32Clock clock;
  my::CWin32AnsiCodec ansi;
  my::CWin32Process process;
  my::CWin32Threads threads;
  my::CKeptThreads helpers(threads);
  const my::CWin32KnownFolders folders;
  my::CWin32Power power;
  const qlm::CEnginePorts engine{files, clock, ansi, texts, process, &helpers, parsed.options.threads};
  const qlm::CRunnerPorts ports{engine, dom, threads, console, folders, power};
  if (parsed.options.removeSchedules) {
    my::CWin32TaskScheduler scheduler;
    return qlm::RemoveSchedules({scheduler, dom, files, texts}, folders, console);
  }
  if (parsed.options.history) return qlm::ShowHistory(ports, parsed.options);
  if (parsed.options.scheduled) ::FreeConsole();  // the user might close it, and so end the run
  const int exitCode = qlm::RunDocument(ports, parsed.options);
  if (parsed.options.scheduled && IsFailure(exitCode)) NotifyFailure(texts, parsed.options.documentPath);
  return exitCode;
}
