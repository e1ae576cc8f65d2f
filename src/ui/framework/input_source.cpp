#include "ui/framework/input_source.h"

#include <windows.h>

namespace my {

bool IsMouseInput() {
  INPUT_MESSAGE_SOURCE source{};
  if (!::GetCurrentInputMessageSource(&source)) return false;
  constexpr DWORD kPointers = IMDT_MOUSE | IMDT_TOUCH | IMDT_PEN | IMDT_TOUCHPAD;
  return (static_cast<DWORD>(source.deviceType) & kPointers) != 0;
}

}  // namespace my
