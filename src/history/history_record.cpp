#include "history/history_record.h"

#include <iterator>

namespace qlm {
namespace {

constexpr std::wstring_view kOutcomes[] = {L"CREATED", L"SKIPPED", L"FAILED", L"STOPPED"};
constexpr std::wstring_view kPrograms[] = {L"WINDOW", L"RUNNER"};

static_assert(kRowOutcomeTexts.size() == std::size(kOutcomes));
static_assert(kRunProgramTexts.size() == std::size(kPrograms));

}  // namespace

const my::CEnumTable kRowOutcomeNames{L"RowOutcome", kOutcomes};
const my::CEnumTable kRunProgramNames{L"RunProgram", kPrograms};

CHistoryCounts CountRows(const CHistoryRun& run) {
  CHistoryCounts counts;
  const std::wstring* task = nullptr;
  for (const CHistoryRow& row : run.rows) {
    switch (row.outcome) {
      case RowOutcome::CREATED: ++counts.created; break;
      case RowOutcome::SKIPPED: ++counts.skipped; break;
      case RowOutcome::FAILED: ++counts.failed; break;
      case RowOutcome::STOPPED: ++counts.stopped; break;
    }
    // The rows of a task follow each other and share its listing.
    if (!task || *task != row.taskId) counts.unlisted += row.unlisted;
    task = &row.taskId;
  }
  return counts;
}

}  // namespace qlm
