// Timing: sides that take turns, medians over rounds, and the baseline against itself to show the noise.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// The milliseconds that the work takes.
template <class Work>
double TimeMs(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

struct CSide {
  std::string name;
  double target = 0;            // the largest ratio to the baseline that is good, 0 for none
  std::function<double()> run;  // does the work once and answers its milliseconds
};

// The milliseconds of every round.
using CTimes = std::vector<double>;

struct CMeasured {
  CTimes baseline;
  CTimes baselineAgain;
  std::vector<CTimes> sides;
};

// Runs all sides once to warm up, then round by round. Who goes first changes every second round, and the
// round between runs backwards.
CMeasured Measure(const CSide& baseline, const std::vector<CSide>& sides, int rounds);

double Median(CTimes times);

// The median over the rounds of one side's time divided by the other's in the same round.
double MedianRatio(const CTimes& times, const CTimes& baseline);

// Measures and prints a line for every side: the median ratio, and that of the fastest rounds, which other
// programs disturb least.
void Compare(const CSide& baseline, const std::vector<CSide>& sides, int rounds);

// One line of a table: a figure that is good up to its target; a target of 0 is none.
void PrintFigure(const std::string& name, double figure, const char* unit, double target);

}  // namespace bench
