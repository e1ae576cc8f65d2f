#include "support/name_faults.h"

#include <algorithm>

#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace my {
namespace {

constexpr std::wstring_view kSeparators = L"\\/";
constexpr std::wstring_view kDigits =
    L"0123456789\u00B9\u00B2\u00B3";  // superscript 1 to 3 also count as digits

bool IsDevice(std::wstring_view component) {
  const std::wstring_view stem = TrimEnd(component.substr(0, component.find_first_of(L".:")), L" ");
  for (const wchar_t* const device : {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"}) {
    if (EqualNoCase(stem, device)) return true;
  }
  if (stem.size() != 4 || kDigits.find(stem[3]) == kDigits.npos) return false;
  return EqualNoCase(stem.substr(0, 3), L"COM") || EqualNoCase(stem.substr(0, 3), L"LPT");
}

uint32_t FaultOf(std::wstring_view component) {
  if (IsDevice(component)) return IDS_NAME_IS_DEVICE;
  return component.find(L':') == component.npos ? 0 : IDS_NAME_HAS_COLON;
}

// Returns the folder without its drive ("C:", "\\?\C:").
std::wstring_view WithoutDrive(std::wstring_view folder) {
  const std::wstring_view drive = folder.starts_with(L"\\\\?\\") ? folder.substr(4) : folder;
  return drive.size() >= 2 && drive[1] == L':' ? drive.substr(2) : drive;
}

template <class Fault>
std::optional<CNameFault> FindIn(std::wstring_view path, Fault fault) {
  while (!path.empty()) {
    const size_t length = std::min(path.find_first_of(kSeparators), path.size());
    const std::wstring_view component = path.substr(0, length);
    const uint32_t id = component.empty() ? 0 : fault(component);
    if (id != 0) return CNameFault{id, std::wstring(component)};
    path.remove_prefix(std::min(length + 1, path.size()));
  }
  return {};
}

}  // namespace

bool HasBadCharacter(std::wstring_view name) {
  constexpr std::wstring_view kBad = L"<>:\"|?*";
  return std::ranges::any_of(name, [&](wchar_t c) { return c < L' ' || kBad.find(c) != kBad.npos; });
}

std::optional<CNameFault> FindNameFault(std::wstring_view folder, std::wstring_view name) {
  if (auto found = FindIn(WithoutDrive(folder), FaultOf)) return found;
  return FindIn(name, [](std::wstring_view component) -> uint32_t {
    return TrimEnd(component, L". ").empty() ? IDS_NAME_ONLY_DOTS : FaultOf(component);
  });
}

}  // namespace my
