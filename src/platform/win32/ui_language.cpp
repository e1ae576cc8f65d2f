#include "platform/win32/ui_language.h"

#include <atomic>

namespace my {
namespace {

UiLanguage DisplayLanguage() {
  return PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE ? UiLanguage::Japanese
                                                                      : UiLanguage::English;
}

std::atomic<UiLanguage>& Current() {
  static std::atomic<UiLanguage> current = DisplayLanguage();
  return current;
}

}  // namespace

UiLanguage CurrentUiLanguage() {
  return Current();
}

void SetUiLanguage(UiLanguage language) {
  Current() = language;
}

std::span<const std::byte> LocalResource(const wchar_t* type, UINT id) {
  const wchar_t* const name = MAKEINTRESOURCEW(id);
  HRSRC resource = ::FindResourceExW(nullptr, type, name, static_cast<WORD>(CurrentUiLanguage()));
  if (!resource) resource = ::FindResourceW(nullptr, name, type);
  const HGLOBAL loaded = resource ? ::LoadResource(nullptr, resource) : nullptr;
  if (!loaded) return {};
  return {static_cast<const std::byte*>(::LockResource(loaded)), ::SizeofResource(nullptr, resource)};
}

}  // namespace my
