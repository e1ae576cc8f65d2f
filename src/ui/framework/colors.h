#pragma once

#include <windows.h>

#include "support/value_codecs.h"

namespace my {

inline COLORREF ColorRef(CColor color) {
  return RGB(color.red, color.green, color.blue);
}

inline CColor ColorOfRef(COLORREF color) {
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

// Returns a system colour; `index` is a COLOR_ value.
inline CColor SystemColor(int index) {
  return ColorOfRef(::GetSysColor(index));
}

}  // namespace my
