// What the history keeps of a run. It never holds a password.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/enum_names.h"
#include "support/file_time.h"
#include "text_ids.h"

namespace qlm {

enum class RowOutcome { CREATED, SKIPPED, FAILED, STOPPED };
enum class RunProgram { WINDOW, RUNNER };

// The names in files.
extern const my::CEnumTable kRowOutcomeNames;
extern const my::CEnumTable kRunProgramNames;

inline constexpr my::CEnumTexts<RowOutcome> kRowOutcomeTexts{IDS_OUTCOME_CREATED, IDS_OUTCOME_STOPPED};
inline constexpr my::CEnumTexts<RunProgram> kRunProgramTexts{IDS_PROGRAM_WINDOW, IDS_PROGRAM_RUNNER};

// One task and destination. The counts are those of the listing, whatever the outcome.
struct CHistoryRow {
  std::wstring taskId;
  std::wstring source;
  std::wstring destination;  // the folder or archive; empty if the job ended before it was known
  RowOutcome outcome = RowOutcome::FAILED;
  uint64_t files = 0;  // to back up
  uint64_t bytes = 0;  // of these files
  uint64_t excluded = 0;
  uint64_t unlisted = 0;  // folders that could not be read
  uint32_t error = 0;     // id of the message or HRESULT; 0 for none
  uint32_t detail = 0;    // HRESULT of the system error; 0 for none or if an old program wrote the record
  std::wstring message;   // of the error, in one line

  friend bool operator==(const CHistoryRow&, const CHistoryRow&) = default;
};

struct CHistoryRun {
  my::CFileTime start;  // stored in whole seconds
  my::CFileTime end;
  RunProgram program = RunProgram::WINDOW;
  std::wstring document;  // full path; empty for an untitled document
  bool stopped = false;   // by the user
  std::vector<CHistoryRow> rows;

  friend bool operator==(const CHistoryRun&, const CHistoryRun&) = default;
};

struct CHistoryCounts {
  size_t created = 0;
  size_t skipped = 0;
  size_t failed = 0;
  size_t stopped = 0;
  uint64_t unlisted = 0;  // folders, once per task
};

CHistoryCounts CountRows(const CHistoryRun& run);

}  // namespace qlm
