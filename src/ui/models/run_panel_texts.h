// The texts of the run panel.
#pragma once

#include <string>

#include "ui/models/row_colors.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

class CBackupThread;
class CResultListModel;
struct CResult;
struct CRunMeasure;

struct CRunPanelTexts {
  std::wstring run;   // the whole run
  std::wstring row;   // the running row; empty between two rows
  std::wstring file;  // the task and the file that is being copied

  friend bool operator==(const CRunPanelTexts&, const CRunPanelTexts&) = default;
};

// `row` is the running row; null before the first.
CRunPanelTexts RunPanelTexts(const my::IMessageTexts& texts, const CRunMeasure& measure, const CResult* row);

// What a run has come to.
struct CVerdict {
  std::wstring text;                         // the numbers of rows by outcome
  std::wstring totals;                       // files, bytes and time
  ResultState state = ResultState::Created;  // decides icon and colour

  friend bool operator==(const CVerdict&, const CVerdict&) = default;
};

// Both arguments are of the same, ended run.
CVerdict MakeVerdict(const my::IMessageTexts& texts, const CBackupThread& run,
                     const CResultListModel& results);

}  // namespace qlm
