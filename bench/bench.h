// What the measurements of this folder have in common with the program that starts them.
#pragma once

#include <string>

namespace bench {

struct COptions {
  std::wstring root;      // folder for the trees, which are kept for the next run
  std::wstring archiver;  // 7z.exe
  int rounds = 9;
  int divisor = 1;  // the trees are that many times smaller
};

// Each prints a table of what it measured.
void MeasureListing(const COptions& options);
void MeasureCopy(const COptions& options);
void MeasureMemory(const COptions& options);
void MeasureZip(const COptions& options);
void MeasureUnchanged(const COptions& options);
void MeasureTick(const COptions& options);

}  // namespace bench
