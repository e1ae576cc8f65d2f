#include "platform/win32/app_identity.h"

#include <windows.h>

#include <shobjidl.h>

namespace my {

void SetAppIdentity() {
  ::SetCurrentProcessExplicitAppUserModelID(kAppIdentity);
}

}  // namespace my
