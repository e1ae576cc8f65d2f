#include "ui/dialogs/manual_pages.h"

#include <algorithm>

#include "control_ids.h"

namespace qlm {
namespace {

struct CEntry {
  UINT templateId;
  const wchar_t* page;
};

constexpr CEntry kPages[] = {
    {IDD_TASK, L"tasks.html"},      {IDD_DST, L"destinations.html"},   {IDD_FILTER, L"filters.html"},
    {IDD_TARGETS, L"plan.html"},    {IDD_RESULTS, L"results.html"},    {IDD_HISTORY, L"history.html"},
    {IDD_PLAN, L"plan.html"},       {IDD_SCHEDULES, L"schedule.html"}, {IDD_SCHEDULE_EDIT, L"schedule.html"},
    {IDD_REPLACE, L"replace.html"}, {IDD_PASSWORD, L"archives.html"},  {IDD_SETTINGS, L"settings.html"},
    {IDD_ABOUT, L"index.html"},
};

}  // namespace

std::optional<std::wstring> ManualPage(UINT templateId) {
  const auto found = std::ranges::find(kPages, templateId, &CEntry::templateId);
  if (found == std::end(kPages)) return {};
  return found->page;
}

}  // namespace qlm
