#pragma once

#include <boost/smart_ptr/make_shared.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "document/task.h"
#include "engine/targets.h"
#include "support/exception.h"
#include "support/file_time.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

// One row of a run: one task and one destination.
struct CResult {
  my::CSimpleErr error;                                  // why the run ended at this row
  uint32_t message = 0;                                  // the phase that the row reached (IDS_PHASE_...)
  boost::shared_ptr<const CTask> task;                   // a copy that holds exactly this row's destination
  CTargetsPtr targets = boost::make_shared<CTargets>();  // shared with the other rows of the job
  my::CFileTime newestWriteTime;                         // zero until listed
  std::wstring destinationPath;  // the folder or archive that the row creates; empty until listed

  // The row's destination, null for a task that has none.
  const CDst* Dst() const { return task->dsts.empty() ? nullptr : task->dsts.front().get(); }
};

// A row that was handed out does not change any more.
using CResultPtr = boost::shared_ptr<const CResult>;
using CResults = std::vector<CResultPtr>;

// What the result list shows for a row: the text of its phase, or what went wrong in it. On one line.
std::wstring ResultText(const my::IMessageTexts& texts, const CResult& result);

// Returns the path of a folder that could not be listed, with the reason: "C:\a\ (access denied
// (0x80070005))".
std::wstring UnlistedText(const my::IMessageTexts& texts, const CTask& task, const CUnlistedFolder& unlisted);

}  // namespace qlm
