#pragma once

#include <windows.h>

#include "support/exception.h"

namespace my {

// Returns the error of the last failed call. Must be called before any other system function.
inline CSystemError LastError() {
  return CSystemError::FromWin32(::GetLastError());
}

}  // namespace my
