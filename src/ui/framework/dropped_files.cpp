#include "ui/framework/dropped_files.h"

namespace my {

std::vector<std::wstring> PathsOf(HDROP drop) {
  std::vector<std::wstring> paths(::DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0));
  for (UINT i = 0; i < paths.size(); ++i) {
    std::wstring& path = paths[i];
    path.resize(::DragQueryFileW(drop, i, nullptr, 0) + 1);
    path.resize(::DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
  }
  return paths;
}

CDroppedFiles TakeDrop(HWND window, HDROP drop) {
  CDroppedFiles files;
  files.paths = PathsOf(drop);
  ::DragQueryPoint(drop, &files.screen);
  ::DragFinish(drop);
  ::ClientToScreen(window, &files.screen);
  return files;
}

}  // namespace my
