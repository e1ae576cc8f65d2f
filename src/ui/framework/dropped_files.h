#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

namespace my {

struct CDroppedFiles {
  std::vector<std::wstring> paths;
  POINT screen{};  // where they were dropped
};

std::vector<std::wstring> PathsOf(HDROP drop);

// Reads and frees the drop of a WM_DROPFILES of `window`.
CDroppedFiles TakeDrop(HWND window, HDROP drop);

}  // namespace my
