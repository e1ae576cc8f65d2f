#include "platform/win32/win32_clock.h"

#include <windows.h>

#include "platform/win32/last_error.h"
#include "support/exception.h"

namespace my {
namespace {

// Returns whether the time can be converted. Not every version of the conversion functions checks this.
bool IsInCalendar(const FILETIME& time) {
  if (time.dwHighDateTime >> 31 == 0) return true;
  ::SetLastError(ERROR_INVALID_PARAMETER);
  return false;
}

}  // namespace

uint64_t CWin32Clock::TickCount() const {
  return ::GetTickCount64();
}

CFileTime CWin32Clock::Now() const {
  FILETIME now{};
  ::GetSystemTimeAsFileTime(&now);
  return {uint64_t{now.dwHighDateTime} << 32 | now.dwLowDateTime};
}

void CWin32Clock::Sleep(uint32_t ms) const {
  ::Sleep(ms);
}

CCalendar CWin32Clock::LocalCalendar(CFileTime time) const {
  const FILETIME utc{static_cast<DWORD>(time.ticks), static_cast<DWORD>(time.ticks >> 32)};
  FILETIME local{};
  SYSTEMTIME fields{};
  if (!IsInCalendar(utc) || !::FileTimeToLocalFileTime(&utc, &local) || !IsInCalendar(local) ||
      !::FileTimeToSystemTime(&local, &fields)) {
    throw CException(LastError());
  }
  return {fields.wYear, fields.wMonth, fields.wDay, fields.wHour, fields.wMinute, fields.wSecond};
}

}  // namespace my
