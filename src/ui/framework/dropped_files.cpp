#include "ui/framework/dropped_files.h"

namespace my {

CDroppedFiles TakeDrop(HWND window, HDROP drop) {
  CDroppedFiles files;
  files.paths.resize(::DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0));
  for (UINT i = 0; i < files.paths.size(); ++i) {
    std::wstring& path = files.paths[i];
    path.resize(::DragQueryFileW(drop, i, nullptr, 0) + 1);
    path.resize(::DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
  }
  ::DragQueryPoint(drop, &files.screen);
  ::DragFinish(drop);
  ::ClientToScreen(window, &files.screen);
  return files;
}

}  // namespace my
