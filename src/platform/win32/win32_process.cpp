#include "platform/win32/win32_process.h"

#include <windows.h>

#include "platform/win32/handle.h"
#include "platform/win32/last_error.h"
#include "support/exception.h"
#include "support/secret.h"
#include "text_ids.h"

namespace my {
namespace {

static_assert(CProcessStart::kNoWindow == CREATE_NO_WINDOW && IProcess::kStillActive == STILL_ACTIVE);

// Returns a job that kills its processes when its last handle is closed, thus also when this process is
// killed. Null if the system cannot create one. Child processes do not inherit the handle.
CKernelHandle KillOnCloseJob() {
  CKernelHandle job(::CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  if (!job ||
      !::SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits))) {
    return {};
  }
  return job;
}

// Resumes a process that was created suspended; terminates it if that fails.
void Resume(HANDLE process, HANDLE thread, const std::wstring& program) {
  if (::ResumeThread(thread) != static_cast<DWORD>(-1)) return;
  const CSystemError error = LastError();
  ::TerminateProcess(process, 1);
  throw CException(IDS_CREATE_PROCESS_FAILED, {error, program});
}

STARTUPINFOW StartupOf(CStartupInformation& information) {
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  if (!information.desktop.empty()) startup.lpDesktop = information.desktop.data();
  if (!information.title.empty()) startup.lpTitle = information.title.data();
  if (information.showMode) {
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = *information.showMode;
  }
  return startup;
}

SECURITY_ATTRIBUTES AttributesOf(CHandleSecurity& security) {
  SECURITY_ATTRIBUTES attributes{};
  attributes.nLength = sizeof(attributes);
  attributes.lpSecurityDescriptor = security.descriptor.empty() ? nullptr : security.descriptor.data();
  attributes.bInheritHandle = security.inherit;
  return attributes;
}

// Returns the null-terminated variables, followed by another null.
std::wstring EnvironmentBlock(const std::vector<std::wstring>& variables) {
  std::wstring block;
  for (const std::wstring& variable : variables) block.append(variable).append(1, L'\0');
  if (block.empty()) block.append(1, L'\0');
  return block.append(1, L'\0');
}

// Creates the process suspended.
PROCESS_INFORMATION Create(const CProcessStart& start, std::wstring& commandLine) {
  // CreateProcess needs writable buffers.
  CStartupInformation appearance = start.startup;
  CHandleSecurity processSecurity = start.processSecurity;
  CHandleSecurity threadSecurity = start.threadSecurity;
  STARTUPINFOW startup = StartupOf(appearance);
  SECURITY_ATTRIBUTES ofProcess = AttributesOf(processSecurity);
  SECURITY_ATTRIBUTES ofThread = AttributesOf(threadSecurity);
  std::wstring environment = start.environment ? EnvironmentBlock(*start.environment) : std::wstring();
  const wchar_t* const folder = start.workingFolder.empty() ? nullptr : start.workingFolder.c_str();
  const DWORD flags = start.creationFlags | CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT;
  PROCESS_INFORMATION information{};
  const BOOL created = ::CreateProcessW(
      start.program.c_str(), commandLine.data(), &ofProcess, &ofThread, start.inheritHandles, flags,
      start.environment ? environment.data() : nullptr, folder, &startup, &information);
  if (created) return information;
  throw CException(IDS_CREATE_PROCESS_FAILED, {LastError(), start.program});
}

// Waits for the end of the process. Returns whether that succeeded.
bool WaitForEnd(HANDLE process, const std::function<void()>& whileWaiting) {
  constexpr DWORD kPeriodMs = 1000;
  while (whileWaiting) {
    const DWORD waited = ::WaitForSingleObject(process, kPeriodMs);
    if (waited != WAIT_TIMEOUT) return waited == WAIT_OBJECT_0;
    whileWaiting();
  }
  return ::WaitForSingleObject(process, INFINITE) == WAIT_OBJECT_0;
}

}  // namespace

uint32_t CWin32Process::Run(const CProcessStart& start) {
  std::wstring commandLine = L"\"" + start.program + L"\"";
  const CWipeAtEnd wipe(commandLine);  // the arguments may hold a password
  commandLine.reserve(commandLine.size() + start.arguments.size() + 1);
  if (!start.arguments.empty()) commandLine.append(L" ").append(start.arguments);
  const PROCESS_INFORMATION information = Create(start, commandLine);
  const CKernelHandle process(information.hProcess);
  const CKernelHandle thread(information.hThread);
  const CKernelHandle job = start.wait ? KillOnCloseJob() : CKernelHandle();
  // May fail if this process is in a restrictive job. The program runs without the job then.
  if (job) ::AssignProcessToJobObject(job.Get(), process.Get());
  Resume(process.Get(), thread.Get(), start.program);
  if (!start.wait) return kStillActive;
  DWORD exitCode = 0;
  if (!WaitForEnd(process.Get(), start.whileWaiting) || !::GetExitCodeProcess(process.Get(), &exitCode)) {
    throw CException(IDS_EXIT_CODE_FAILED, {LastError()});
  }
  return exitCode;
}

}  // namespace my
