#include "ui/framework/local_menu.h"

#include "platform/win32/ui_language.h"

namespace my {

HMENU LoadLocalMenu(UINT id) {
  const auto menu = LocalResource(RT_MENU, id);
  return menu.empty() ? nullptr : ::LoadMenuIndirectW(menu.data());
}

}  // namespace my
