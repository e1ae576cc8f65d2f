// The state of a run at one moment, from the rows of its jobs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "engine/result.h"

namespace qlm {

struct CWork {
  uint64_t files = 0;
  uint64_t bytes = 0;  // of these files, as listed

  CWork& operator+=(const CWork& other);
  friend bool operator==(const CWork&, const CWork&) = default;
};

// The row that is being worked on.
struct CRowSample {
  size_t number = 0;  // among all rows of the run
  Phase phase = Phase::Listing;
  CWork done;
  CWork toDo;                 // in total
  uint64_t archiveBytes = 0;  // size of the growing archive
  uint64_t elapsedMs = 0;     // of the transfer

  // Returns whether all files are copied, and only the device is waited for.
  bool IsFlushing() const { return phase == Phase::Copying && done == toDo; }
};

// The state of a run at one tick.
struct CRunSample {
  uint64_t tick = 0;              // milliseconds
  size_t rows = 0;                // of the run
  bool oneSource = false;         // whether all rows are of one job, and so have the same files
  size_t rowsDone = 0;            // ended, or not reached because their job failed
  size_t rowsAhead = 0;           // of the running job, after the running row
  size_t rowsUnlisted = 0;        // of jobs whose source is not listed yet
  CWork done;                     // by ended rows
  CWork copied;                   // the part of `done` that was copied to folders
  std::optional<CRowSample> row;  // nullopt between two rows
};

// What the jobs before the running one have done.
struct CRunTotals {
  size_t rows = 0;
  CWork done;
  CWork copied;
};

// Adds an ended job with this number of destinations, some of which a failed job has not reached.
void AddJob(CRunTotals& totals, size_t dsts, const CResults& rows);

// Returns the sample of a run of `rows` rows. The running job has `dsts` destinations; 0 if there is none.
CRunSample MakeSample(const CRunTotals& earlier, size_t rows, size_t dsts, const CResults& jobRows,
                      uint64_t tick);

}  // namespace qlm
