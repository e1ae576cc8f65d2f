// Quillmoor.exe: the desktop program.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include "platform/win32/app_identity.h"
#include "platform/win32/system_function.h"
#include "ui/program.h"

namespace {

// Keeps OLE, which includes COM, initialized on the calling thread.
class COle {
 public:
  COle() : m_result(::OleInitialize(nullptr)) {}
  COle(const COle&) = delete;
  COle& operator=(const COle&) = delete;
  ~COle() {
    if (SUCCEEDED(m_result)) ::OleUninitialize();
  }

 private:
  HRESULT m_result;
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int showCommand) {
  my::LoadOnlySystemLibraries();
  my::SetAppIdentity();
  const COle ole;
  ::DefWindowProcW(nullptr, 0, 0, 0);  // initializes user32 before the first window is created
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES |
                                                           ICC_STANDARD_CLASSES | ICC_LINK_CLASS |
                                                           ICC_TAB_CLASSES | ICC_DATE_CLASSES};
  ::InitCommonControlsEx(&controls);
  return qlm::RunDesktopProgram(::GetCommandLineW(), showCommand);
}
