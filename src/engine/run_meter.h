// Measures a running run: what is done and to do, speed, time left, percentage.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

#include "engine/run_sample.h"
#include "engine/time_left.h"

namespace qlm {

struct CRunMeasure {
  std::optional<CRowSample> row;
  CWork done;
  std::optional<CWork> toDo;      // in total, if all sources are listed
  std::optional<uint64_t> speed;  // bytes per second; nullopt unless files are being copied
  std::optional<uint64_t> rowSecondsLeft;
  std::optional<uint64_t> runSecondsLeft;
  int percent = 0;       // never decreases
  bool isExact = false;  // `percent` is that of the bytes; otherwise rows count alike
};

// Used by one thread, for one run.
class CRunMeter {
 public:
  // Must be called at every tick of a run.
  void Add(const CRunSample& sample);

  // The run has ended. Without a stop nothing is left to do.
  void End(const CRunSample& sample, bool stopped);

  // Returns the figures at the last sample.
  const CRunMeasure& Measure() const { return m_measure; }

 private:
  // What was copied after some time of copying. Time spent on listings and archives does not count.
  struct CPoint {
    uint64_t copyingMs = 0;
    CWork copied;
  };

  void Note(const CRunSample& sample);
  void MeasureWork(const CRunSample& sample);
  void MeasureSpeed(const CRunSample& sample);
  void MeasureLeft(const CRunSample& sample);
  void MeasurePercent(const CRunSample& sample);
  uint64_t WindowMs() const;  // of copying
  std::optional<double> MsFor(const CWork& work) const;
  std::optional<double> RunMsLeft(const CRunSample& sample) const;

  std::deque<CPoint> m_points;  // the last seconds, oldest first
  uint64_t m_firstTick = 0;
  uint64_t m_tick = 0;          // of the last sample
  std::optional<size_t> m_row;  // at the last sample
  CTimeLeft m_rowLeft;
  CTimeLeft m_runLeft;
  CRunMeasure m_measure;
};

}  // namespace qlm
