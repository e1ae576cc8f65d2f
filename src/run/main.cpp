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
#include "run/run_notice.h"
#include "run/runner.h"
#include "run/schedule_removal.h"
#include "text_ids.h"

namespace {

// Nobody reads the output of a scheduled run.
void Notify(const my::IMessageTexts& texts, const qlm::CRunNotice& run) {
  my::CNotice notice;
  notice.kind = run.isError ? my::CNotice::Kind::Error : my::CNotice::Kind::Warning;
  notice.title = run.title;
  notice.text = run.text;
  notice.tip = texts.Text(IDS_DISPLAY_NAME);
  notice.icon = ::LoadIconW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_QUILLMOOR));
  my::ShowStandaloneNotice(notice);
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
  if (!parsed.options.scheduled) return qlm::RunDocument(ports, parsed.options).exitCode;
  console.Detach();  // the user might close it, and so end the run
  const qlm::CRunOutcome outcome = qlm::RunDocument(ports, parsed.options);
  const auto notice = qlm::NoticeOf(texts, parsed.options.documentPath, outcome);
  if (notice) Notify(texts, *notice);
  return outcome.exitCode;
}
