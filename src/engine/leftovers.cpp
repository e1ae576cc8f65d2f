#include "engine/leftovers.h"

#include "document/filter.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "support/paths.h"
#include "support/strings.h"

namespace qlm {
namespace {

constexpr std::wstring_view kDigits = L"0123456789";
constexpr std::wstring_view kTemporary = L"_tmp";
constexpr std::wstring_view kReservation = L"_lck";

// Returns "name" for "_tmp_name" and "_tmp12_name"; empty if the name is not a temporary one.
std::wstring_view NameAfterPrefix(std::wstring_view name) {
  if (!my::EqualNoCase(name.substr(0, kTemporary.size()), kTemporary)) return {};
  const size_t end = name.find_first_not_of(kDigits, kTemporary.size());
  return end == name.npos || name[end] != L'_' ? std::wstring_view() : name.substr(end + 1);
}

uint64_t SizeBelow(my::IFileSystem& files, const my::IStopQuery* stop, const std::wstring& folder) {
  CTargets targets;
  ListSource(files, CFilter(), stop, folder, targets);
  return CountTargets(targets).bytes;
}

}  // namespace

std::wstring NameForm(std::wstring_view name) {
  std::wstring form;
  bool inNumber = false;
  for (const wchar_t c : name) {
    const bool isDigit = kDigits.find(c) != kDigits.npos;
    if (!isDigit) form += my::LowerAscii(c);
    if (isDigit && !inNumber) form += L'0';
    inNumber = isDigit;
  }
  return form;
}

std::vector<CLeftover> FindLeftovers(my::IFileSystem& files, const my::IStopQuery* stop,
                                     const std::wstring& folder, const std::set<std::wstring>& forms) {
  std::vector<CLeftover> found;
  std::set<std::wstring> reservations;
  const auto find = files.Find(folder);
  for (my::CFindData entry; find->Next(entry);) {
    if (my::EqualNoCase(entry.name.substr(0, kReservation.size()), kReservation))
      reservations.insert(my::ComparablePath(entry.name));
    const std::wstring_view name = NameAfterPrefix(entry.name);
    if (name.empty() || !forms.contains(NameForm(name))) continue;
    const bool isFolder = (entry.attributes & my::kAttributeFolder) != 0;
    found.push_back(
        {my::JoinPath(folder, entry.name), isFolder ? my::PathKind::Folder : my::PathKind::File, entry.size});
  }
  std::erase_if(found, [&](const CLeftover& leftover) {
    const std::wstring name = my::ComparablePath(my::LastComponent(leftover.path));
    return reservations.contains(std::wstring(kReservation) + name.substr(kTemporary.size()));
  });
  for (CLeftover& leftover : found) {
    if (leftover.kind == my::PathKind::Folder) leftover.bytes = SizeBelow(files, stop, leftover.path);
  }
  return found;
}

std::optional<CLeftover> FindLeftover(my::IFileSystem& files, const my::IStopQuery* stop,
                                      const std::wstring& path) {
  const std::wstring form = NameForm(NameAfterPrefix(my::LastComponent(path)));
  const std::wstring wanted = my::ComparablePath(path);
  for (const CLeftover& found : FindLeftovers(files, stop, std::wstring(my::ParentPath(path)), {form})) {
    if (my::ComparablePath(found.path) == wanted) return found;
  }
  return {};
}

}  // namespace qlm
