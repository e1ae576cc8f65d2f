#include "engine/run_meter.h"

#include <algorithm>
#include <utility>

namespace qlm {
namespace {

constexpr uint64_t kWindowMs = 8000;   // of copying, for the speed
constexpr uint64_t kLeastMs = 1000;    // of copying, before a speed is shown
constexpr uint64_t kSpacingMs = 250;   // between two points
constexpr double kBytesPerFile = 1e5;  // creating a file takes as long as writing so many bytes
constexpr double kAlmost = 0.99;       // the fraction of a row that is still being written

CWork operator-(const CWork& from, const CWork& other) {
  return {from.files - other.files, from.bytes - other.bytes};
}

CWork operator*(const CWork& work, size_t count) {
  return {work.files * count, work.bytes * count};
}

CWork operator+(CWork work, const CWork& other) {
  return work += other;
}

// Returns an amount of work that takes about the same time for any sizes of files.
double Units(const CWork& work) {
  return static_cast<double>(work.bytes) + kBytesPerFile * static_cast<double>(work.files);
}

// The final size of an archive is unknown; the size of its files is an upper limit for most.
double RowFraction(const CRowSample& row) {
  if (row.phase == Phase::Archiving) {
    const double bytes = static_cast<double>(std::max<uint64_t>(row.toDo.bytes, 1));
    return std::min(kAlmost, static_cast<double>(row.archiveBytes) / bytes);
  }
  const double units = Units(row.toDo);
  return units > 0 ? kAlmost * Units(row.done) / units : 0;
}

bool IsIn(Phase phase, const CRunSample& sample) {
  return sample.row && sample.row->phase == phase;
}

}  // namespace

void CRunMeter::Add(const CRunSample& sample) {
  Note(sample);
  MeasureWork(sample);
  MeasureSpeed(sample);
  MeasureLeft(sample);
  MeasurePercent(sample);
}

void CRunMeter::MeasureWork(const CRunSample& sample) {
  m_measure.row = sample.row;
  m_measure.done = sample.done;
  m_measure.toDo.reset();
  if (!sample.row) return;
  m_measure.done += sample.row->done;
  // The work of a row is known when its transfer has begun.
  const bool known = IsIn(Phase::Copying, sample) || IsIn(Phase::Archiving, sample);
  if (known && sample.rowsUnlisted == 0)
    m_measure.toDo = sample.done + sample.row->toDo * (1 + sample.rowsAhead);
}

void CRunMeter::MeasureSpeed(const CRunSample& sample) {
  m_measure.speed.reset();
  if (!IsIn(Phase::Copying, sample) || WindowMs() < kLeastMs) return;
  m_measure.speed = (m_points.back().copied - m_points.front().copied).bytes * 1000 / WindowMs();
}

void CRunMeter::MeasureLeft(const CRunSample& sample) {
  const std::optional<size_t> row = sample.row ? std::optional(sample.row->number) : std::nullopt;
  if (std::exchange(m_row, row) != row) m_rowLeft = {};
  const bool copying = IsIn(Phase::Copying, sample);
  m_rowLeft.Update(sample.tick, copying ? MsFor(sample.row->toDo - sample.row->done) : std::nullopt);
  // A listing is short, an archive is not.
  if (copying || IsIn(Phase::Archiving, sample))
    m_runLeft.Update(sample.tick, copying ? RunMsLeft(sample) : std::nullopt);
  else
    m_runLeft.Pass(sample.tick);
  m_measure.rowSecondsLeft = m_rowLeft.Seconds();
  m_measure.runSecondsLeft = m_runLeft.Seconds();
}

void CRunMeter::MeasurePercent(const CRunSample& sample) {
  const double rows = static_cast<double>(sample.rowsDone) + (sample.row ? RowFraction(*sample.row) : 0);
  const double all = static_cast<double>(std::max<size_t>(sample.rows, 1));
  m_measure.percent = std::max(m_measure.percent, static_cast<int>(std::min(99.0, 100 * rows / all)));
  if (sample.row) m_measure.isExact = sample.oneSource && IsIn(Phase::Copying, sample);
}

void CRunMeter::End(const CRunSample& sample, bool stopped) {
  const int percent = m_measure.percent;
  m_measure = {};
  m_measure.done = sample.done;
  m_measure.percent = stopped ? percent : 100;
  m_measure.isExact = !stopped;
}

// Remembers what has been copied. A row may begin and end between two samples.
void CRunMeter::Note(const CRunSample& sample) {
  const bool copying = IsIn(Phase::Copying, sample);
  CPoint point{0, sample.copied};
  if (copying) point.copied += sample.row->done;
  if (m_points.empty()) {
    m_points.push_back(point);
    m_firstTick = m_tick = sample.tick;
  }
  const CPoint& last = m_points.back();
  const bool progress = point.copied != last.copied;
  point.copyingMs = last.copyingMs + (copying || progress ? sample.tick - m_tick : 0);
  m_tick = sample.tick;
  const bool replaces =
      m_points.size() > 1 && m_points.back().copyingMs - m_points[m_points.size() - 2].copyingMs < kSpacingMs;
  if (replaces) m_points.pop_back();
  m_points.push_back(point);
  while (m_points.size() > 2 && m_points[1].copyingMs + kWindowMs <= point.copyingMs) m_points.pop_front();
}

uint64_t CRunMeter::WindowMs() const {
  return m_points.back().copyingMs - m_points.front().copyingMs;
}

// Returns how long the work takes at the current speed; nullopt if nothing is being done.
std::optional<double> CRunMeter::MsFor(const CWork& work) const {
  const double units = Units(m_points.back().copied - m_points.front().copied);
  if (WindowMs() < kLeastMs || units <= 0) return {};
  return Units(work) / units * static_cast<double>(WindowMs());
}

// Rows of listed sources take what their sizes suggest, all others as long as those before them on average.
std::optional<double> CRunMeter::RunMsLeft(const CRunSample& sample) const {
  const CRowSample& row = *sample.row;
  const std::optional<double> known = MsFor(row.toDo * (1 + sample.rowsAhead) - row.done);
  if (!known || sample.rowsUnlisted == 0) return known;
  if (sample.rowsDone == 0) return {};
  const uint64_t elapsed = sample.tick - m_firstTick - std::min(sample.tick - m_firstTick, row.elapsedMs);
  const double each = static_cast<double>(elapsed) / static_cast<double>(sample.rowsDone);
  return *known + each * static_cast<double>(sample.rowsUnlisted);
}

}  // namespace qlm
