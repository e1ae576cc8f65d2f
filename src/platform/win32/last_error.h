#pragma once

#include <windows.h>

#include "support/exception.h"

namespace my {

// Returns the error of the call that has just failed. To be called before any other function of the system.
inline CSystemError LastError() {
  return CSystemError::FromWin32(::GetLastError());
}

}  // namespace my
