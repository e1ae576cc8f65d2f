// The options and the entry points of the measurements.
#pragma once

#include <string>

namespace bench {

struct COptions {
  std::wstring root;      // folder for the file trees, which are reused by later runs
  std::wstring archiver;  // path of 7z.exe
  int rounds = 9;
  int divisor = 1;  // the file trees are smaller by this factor
};

// Each prints a table of its results.
void MeasureListing(const COptions& options);
void MeasureCopy(const COptions& options);
void MeasureLargeCopy(const COptions& options);
void MeasureFlushedCopy(const COptions& options);
void MeasureMemory(const COptions& options);
void MeasureZip(const COptions& options);
void MeasurePlan(const COptions& options);
void MeasureUnchanged(const COptions& options);
void MeasureTick(const COptions& options);

}  // namespace bench
