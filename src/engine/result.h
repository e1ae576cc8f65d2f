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
#include "text_ids.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

// How far a row has come. The value is the id of the phase's text.
enum class Phase : uint32_t {
  LISTING = IDS_PHASE_LISTING,
  LISTED = IDS_PHASE_LISTED,
  COPYING = IDS_PHASE_COPYING,
  ARCHIVING = IDS_PHASE_ARCHIVING,
  CREATED = IDS_PHASE_CREATED,
  SKIPPED = IDS_PHASE_SKIPPED
};

// One row of a run: one task and one destination.
struct CResult {
  my::CSimpleErr error;                                  // why the run ended at this row
  Phase phase = Phase::LISTING;                          // the one that the row reached
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

}  // namespace qlm
