#include "engine/run_sample.h"

#include <algorithm>

#include "engine/transfer_counters.h"

namespace qlm {
namespace {

bool HasEnded(const CResult& row) {
  return row.error || row.phase == Phase::Created || row.phase == Phase::Skipped;
}

CWork DoneBy(const CTransferCounters& transfer) {
  return {transfer.Files(), transfer.Bytes()};
}

void AddRow(CRunTotals& totals, const CResult& row) {
  ++totals.rows;
  if (!row.transfer) return;
  const CWork done = DoneBy(*row.transfer);
  totals.done += done;
  if (!IsZip(row.Dst()->type)) totals.copied += done;
}

CRowSample SampleRow(const CResult& row, size_t number, uint64_t tick) {
  CRowSample sample;
  sample.number = number;
  sample.phase = row.phase;
  if (!row.transfer) return sample;
  const CTransferCounters& transfer = *row.transfer;
  sample.done = DoneBy(transfer);
  sample.toDo = {transfer.ToDo().counted, transfer.ToDo().bytes};
  sample.archiveBytes = transfer.ArchiveBytes();
  sample.elapsedMs = tick - std::min(tick, transfer.StartTick());
  return sample;
}

}  // namespace

CWork& CWork::operator+=(const CWork& other) {
  files += other.files;
  bytes += other.bytes;
  return *this;
}

void AddJob(CRunTotals& totals, size_t dsts, const CResults& rows) {
  const size_t before = totals.rows;
  for (const CResultPtr& row : rows) AddRow(totals, *row);
  totals.rows = before + dsts;
}

CRunSample MakeSample(const CRunTotals& earlier, size_t rows, size_t dsts, const CResults& jobRows,
                      uint64_t tick) {
  CRunTotals totals = earlier;
  CRunSample sample;
  sample.tick = tick;
  sample.rows = rows;
  sample.oneSource = rows == dsts;
  sample.rowsUnlisted = rows - std::min(rows, earlier.rows + dsts);
  const bool failed = !jobRows.empty() && jobRows.back()->error;
  if (failed) {
    AddJob(totals, dsts, jobRows);
  } else {
    for (const CResultPtr& row : jobRows) {
      if (HasEnded(*row)) AddRow(totals, *row);
    }
  }
  if (!jobRows.empty() && !HasEnded(*jobRows.back())) {
    sample.row = SampleRow(*jobRows.back(), totals.rows, tick);
    sample.rowsAhead = dsts - std::min(dsts, jobRows.size());
    // The list of the job is not known before its second phase.
    if (sample.row->phase == Phase::Listing) sample.rowsUnlisted += dsts;
  }
  sample.rowsDone = totals.rows;
  sample.done = totals.done;
  sample.copied = totals.copied;
  return sample;
}

}  // namespace qlm
