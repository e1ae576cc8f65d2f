#include "ui/framework/high_contrast.h"

#include <windows.h>

namespace my {
namespace {

std::optional<bool> g_assumed;

}  // namespace

bool IsHighContrast() {
  if (g_assumed) return *g_assumed;
  HIGHCONTRASTW info{};
  info.cbSize = sizeof info;
  return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof info, &info, 0) &&
         (info.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

void AssumeHighContrast(std::optional<bool> assumed) {
  g_assumed = assumed;
}

}  // namespace my
