// Timing: alternating variants, medians over rounds, and the baseline measured twice to show the noise.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// Returns the milliseconds that `work` takes.
template <class Work>
double TimeMs(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

struct CSide {
  std::string name;
  double target = 0;            // the largest acceptable ratio to the baseline; 0 for none
  std::function<double()> run;  // runs the work once and returns its milliseconds
};

// Milliseconds, one value per round.
using CTimes = std::vector<double>;

struct CMeasured {
  CTimes baseline;
  CTimes baselineAgain;
  std::vector<CTimes> sides;
};

// Runs all variants once to warm up, then `rounds` times. The starting variant changes every second round,
// and odd rounds run in reverse order.
CMeasured Measure(const CSide& baseline, const std::vector<CSide>& sides, int rounds);

double Median(CTimes times);

// Returns the median over the rounds of the ratio of `times` to `baseline` in the same round.
double MedianRatio(const CTimes& times, const CTimes& baseline);

// Measures and prints a line per variant: the median ratio, and the ratio of the fastest rounds, which other
// programs disturb least.
void Compare(const CSide& baseline, const std::vector<CSide>& sides, int rounds);

// Prints one line of a table. The figure is good if it does not exceed the target; 0 means no target.
void PrintFigure(const std::string& name, double figure, const char* unit, double target);

}  // namespace bench
