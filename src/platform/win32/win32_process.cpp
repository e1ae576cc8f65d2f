#include "platform/win32/win32_process.h"

#include <windows.h>

#include "platform/win32/handle.h"
#include "resource.h"
#include "support/exception.h"
#include "support/secret.h"

namespace my {
namespace {

// A job that ends its processes when its last handle is closed, and so when this process ends in any way.
// Empty if the system has none to give. Child processes do not inherit the handle.
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

// Starts a process that was created suspended.
void Resume(HANDLE process, HANDLE thread, const std::wstring& program) {
  if (::ResumeThread(thread) != static_cast<DWORD>(-1)) return;
  const CSystemError error = CSystemError::FromWin32(::GetLastError());
  ::TerminateProcess(process, 1);
  throw CException(IDS_CREATE_PROCESS_FAILED, {error, program});
}

}  // namespace

uint32_t CWin32Process::Run(const CProcessStart& start) {
  std::wstring commandLine = L"\"" + start.program + L"\"";
  const CWipeAtEnd wipe(commandLine);  // the arguments may hold a password
  commandLine.reserve(commandLine.size() + start.arguments.size() + 1);
  if (!start.arguments.empty()) commandLine.append(L" ").append(start.arguments);
  const wchar_t* const folder = start.workingFolder.empty() ? nullptr : start.workingFolder.c_str();
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION information{};
  const DWORD flags = CREATE_SUSPENDED | (start.console ? 0 : CREATE_NO_WINDOW);
  if (!::CreateProcessW(start.program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, flags, nullptr,
                        folder, &startup, &information)) {
    throw CException(IDS_CREATE_PROCESS_FAILED, {CSystemError::FromWin32(::GetLastError()), start.program});
  }
  const CKernelHandle process(information.hProcess);
  const CKernelHandle thread(information.hThread);
  const CKernelHandle job = start.wait ? KillOnCloseJob() : CKernelHandle();
  // A job around this process may forbid it; the program runs all the same.
  if (job) ::AssignProcessToJobObject(job.Get(), process.Get());
  Resume(process.Get(), thread.Get(), start.program);
  if (!start.wait) return kStillActive;
  DWORD exitCode = 0;
  if (::WaitForSingleObject(process.Get(), INFINITE) != WAIT_OBJECT_0 ||
      !::GetExitCodeProcess(process.Get(), &exitCode)) {
    throw CException(IDS_EXIT_CODE_FAILED, {CSystemError::FromWin32(::GetLastError())});
  }
  return exitCode;
}

}  // namespace my
