#include "ui/framework/shortcuts.h"

#include <algorithm>
#include <vector>

namespace my {
namespace {

// GetKeyNameText is not used, because its names differ between keyboards and are long ("INSERT").
std::wstring KeyName(WORD key) {
  switch (key) {
    case VK_INSERT: return L"Ins";
    case VK_DELETE: return L"Del";
    case VK_UP: return L"\u2191";
    case VK_DOWN: return L"\u2193";
    default: break;
  }
  if (key >= VK_F1 && key <= VK_F24) return L"F" + std::to_wstring(key - VK_F1 + 1);
  return std::wstring(1, static_cast<wchar_t>(key));  // a digit or a letter
}

std::vector<ACCEL> Entries(HACCEL table) {
  std::vector<ACCEL> entries(static_cast<size_t>(::CopyAcceleratorTableW(table, nullptr, 0)));
  ::CopyAcceleratorTableW(table, entries.data(), static_cast<int>(entries.size()));
  return entries;
}

}  // namespace

std::wstring ShortcutText(HACCEL table, int command) {
  const std::vector<ACCEL> entries = Entries(table);
  const auto found = std::ranges::find(entries, static_cast<WORD>(command), &ACCEL::cmd);
  if (found == entries.end()) return {};
  std::wstring text;
  if ((found->fVirt & FCONTROL) != 0) text += L"Ctrl+";
  if ((found->fVirt & FALT) != 0) text += L"Alt+";
  if ((found->fVirt & FSHIFT) != 0) text += L"Shift+";
  return text + KeyName(found->key);
}

}  // namespace my
