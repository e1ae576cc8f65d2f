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

// The phase of a row. The value is the id of its text.
enum class Phase : uint32_t {
  Listing = IDS_PHASE_LISTING,
  Listed = IDS_PHASE_LISTED,
  Copying = IDS_PHASE_COPYING,
  Archiving = IDS_PHASE_ARCHIVING,
  Created = IDS_PHASE_CREATED,
  Skipped = IDS_PHASE_SKIPPED
};

// One row of a run: one task and one destination.
struct CResult {
  my::CSimpleErr error;                                  // why the job ended at this row
  Phase phase = Phase::Listing;                          // the last phase reached
  boost::shared_ptr<const CTask> task;                   // a copy with only this row's destination
  CTargetsPtr targets = boost::make_shared<CTargets>();  // shared by the rows of a job
  my::CFileTime newestWriteTime;                         // zero before the listing
  std::wstring destinationPath;  // the folder or archive to create; empty before the listing
  uint64_t transferMs = 0;       // of a created backup: from the start of the transfer to its final name

  // Returns the destination of the row; null for a task without one.
  const CDst* Dst() const { return task->dsts.empty() ? nullptr : task->dsts.front().get(); }
};

// A published row is never changed.
using CResultPtr = boost::shared_ptr<const CResult>;
using CResults = std::vector<CResultPtr>;

// Returns the text of the phase, or of the error with its phase, as it is or in one line.
std::wstring FullResultText(const my::IMessageTexts& texts, const CResult& result);
std::wstring ResultText(const my::IMessageTexts& texts, const CResult& result);

}  // namespace qlm
