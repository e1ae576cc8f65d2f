#include "platform/win32/win32_task_scheduler.h"

#include <windows.h>

#include <initguid.h>
#include <sddl.h>
#include <taskschd.h>

#include "platform/win32/com.h"
#include "platform/win32/handle.h"
#include "platform/win32/last_error.h"
#include "support/exception.h"
#include "text_ids.h"

namespace my {
namespace {

CSystemError Error(HRESULT result) {
  return {static_cast<int32_t>(result)};
}

void Check(HRESULT result) {
  if (FAILED(result)) throw CException(IDS_SCHEDULER_FAILED, {Error(result)});
}

bool MeansMissing(HRESULT result) {
  return result == HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND) ||
         result == HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND);
}

// Returns nullopt for a time that the task does not have: an error, or a date long ago.
std::optional<CCalendar> TimeOf(HRESULT result, DATE date) {
  SYSTEMTIME at{};
  if (result != S_OK || !::VariantTimeToSystemTime(date, &at) || at.wYear < 2000) return {};
  return CCalendar{at.wYear, at.wMonth, at.wDay, at.wHour, at.wMinute, at.wSecond};
}

CScheduledTask Read(IRegisteredTask& task, std::wstring name) {
  CScheduledTask read;
  read.name = std::move(name);
  CBstr xml;
  if (SUCCEEDED(task.get_Xml(xml.Out()))) read.xml = xml.Text();
  VARIANT_BOOL enabled = VARIANT_TRUE;
  if (SUCCEEDED(task.get_Enabled(&enabled))) read.enabled = enabled != VARIANT_FALSE;
  TASK_STATE state = TASK_STATE_UNKNOWN;
  if (SUCCEEDED(task.get_State(&state))) read.running = state == TASK_STATE_RUNNING;
  DATE date = 0;
  read.nextRun = TimeOf(task.get_NextRunTime(&date), date);
  read.lastRun = TimeOf(task.get_LastRunTime(&date), date);
  LONG result = 0;
  if (SUCCEEDED(task.get_LastTaskResult(&result))) read.lastResult = static_cast<uint32_t>(result);
  return read;
}

}  // namespace

struct CWin32TaskScheduler::CConnection {
  CConnection() {
    CVariant none;
    Check(::CoCreateInstance(CLSID_TaskScheduler, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskService,
                             reinterpret_cast<void**>(service.Out())));
    Check(service->Connect(none.Get(), none.Get(), none.Get(), none.Get()));
    Check(service->GetFolder(CBstr(L"\\").Get(), folder.Out()));
  }

  HRESULT Register(const std::wstring& name, const std::wstring& xml, LONG flags) {
    CVariant none;
    CComPtr<IRegisteredTask> task;
    return folder->RegisterTask(CBstr(name).Get(), CBstr(xml).Get(), flags, none.Get(), none.Get(),
                                TASK_LOGON_INTERACTIVE_TOKEN, none.Get(), task.Out());
  }

  CComPtr<ITaskService> service;
  CComPtr<ITaskFolder> folder;
};

CWin32TaskScheduler::CWin32TaskScheduler() = default;
CWin32TaskScheduler::~CWin32TaskScheduler() = default;

CWin32TaskScheduler::CConnection& CWin32TaskScheduler::Connection() {
  if (!m_connection) m_connection = std::make_unique<CConnection>();
  return *m_connection;
}

std::vector<CScheduledTask> CWin32TaskScheduler::Tasks(std::wstring_view prefix) {
  CComPtr<IRegisteredTaskCollection> all;
  Check(Connection().folder->GetTasks(TASK_ENUM_HIDDEN, all.Out()));
  LONG count = 0;
  Check(all->get_Count(&count));
  std::vector<CScheduledTask> tasks;
  for (LONG i = 1; i <= count; ++i) {
    CVariant index;
    index.Get().vt = VT_I4;
    index.Get().lVal = i;
    CComPtr<IRegisteredTask> task;
    CBstr name;
    // Another program may have removed it since.
    if (FAILED(all->get_Item(index.Get(), task.Out())) || FAILED(task->get_Name(name.Out()))) continue;
    if (name.Text().starts_with(prefix)) tasks.push_back(Read(*task.Get(), name.Text()));
  }
  return tasks;
}

bool CWin32TaskScheduler::Add(const std::wstring& name, const std::wstring& xml) {
  const HRESULT result = Connection().Register(name, xml, TASK_CREATE);
  if (SUCCEEDED(result)) return true;
  if (result == HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS) || result == HRESULT_FROM_WIN32(ERROR_FILE_EXISTS))
    return false;
  throw CException(IDS_SCHEDULE_ADD_FAILED, {Error(result), name});
}

void CWin32TaskScheduler::Change(const std::wstring& name, const std::wstring& xml) {
  const HRESULT result = Connection().Register(name, xml, TASK_CREATE_OR_UPDATE);
  if (FAILED(result)) throw CException(IDS_SCHEDULE_ADD_FAILED, {Error(result), name});
}

void CWin32TaskScheduler::Remove(const std::wstring& name) {
  const HRESULT result = Connection().folder->DeleteTask(CBstr(name).Get(), 0);
  if (FAILED(result) && !MeansMissing(result))
    throw CException(IDS_SCHEDULE_REMOVE_FAILED, {Error(result), name});
}

// The identifier of the account: unlike its name, it is found without a server.
std::wstring CWin32TaskScheduler::User() {
  HANDLE opened = nullptr;
  if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened))
    throw CException(IDS_SCHEDULER_FAILED, {LastError()});
  const CKernelHandle token(opened);
  alignas(TOKEN_USER) char buffer[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
  DWORD size = 0;
  wchar_t* text = nullptr;
  if (!::GetTokenInformation(token.Get(), TokenUser, buffer, sizeof buffer, &size) ||
      !::ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER*>(buffer)->User.Sid, &text))
    throw CException(IDS_SCHEDULER_FAILED, {LastError()});
  const CHandle<HLOCAL, &::LocalFree> owner(text);
  return text;
}

}  // namespace my
