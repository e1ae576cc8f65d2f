#include "harness.h"

#include <algorithm>
#include <cstdio>
#include <numeric>

namespace bench {
namespace {

CTimes Ratios(const CTimes& times, const CTimes& baseline) {
  CTimes ratios;
  for (size_t i = 0; i < times.size(); ++i) ratios.push_back(times[i] / baseline[i]);
  return ratios;
}

// Returns half of the interquartile range.
double Spread(CTimes values) {
  std::sort(values.begin(), values.end());
  const size_t quarter = values.size() / 4;
  return (values[values.size() - 1 - quarter] - values[quarter]) / 2;
}

double Best(const CTimes& times) {
  return *std::min_element(times.begin(), times.end());
}

const char* Verdict(double figure, double target) {
  if (target == 0) return "";
  return figure <= target ? "good" : "MISSED";
}

}  // namespace

CMeasured Measure(const CSide& baseline, const std::vector<CSide>& sides, int rounds) {
  CMeasured measured;
  measured.sides.resize(sides.size());
  std::vector<std::pair<const CSide*, CTimes*>> turns = {{&baseline, &measured.baseline},
                                                         {&baseline, &measured.baselineAgain}};
  for (size_t i = 0; i < sides.size(); ++i) turns.emplace_back(&sides[i], &measured.sides[i]);
  for (const CSide& side : sides) side.run();
  baseline.run();
  for (int round = 0; round < rounds; ++round) {
    auto order = turns;
    std::rotate(order.begin(), order.begin() + round / 2 % static_cast<int>(order.size()), order.end());
    if (round % 2 == 1) std::reverse(order.begin(), order.end());
    for (const auto& [side, times] : order) times->push_back(side->run());
  }
  return measured;
}

double Median(CTimes times) {
  std::sort(times.begin(), times.end());
  const size_t half = times.size() / 2;
  return times.size() % 2 == 1 ? times[half] : std::midpoint(times[half - 1], times[half]);
}

double MedianRatio(const CTimes& times, const CTimes& baseline) {
  return Median(Ratios(times, baseline));
}

void Compare(const CSide& baseline, const std::vector<CSide>& sides, int rounds) {
  const CMeasured measured = Measure(baseline, sides, rounds);
  const double bestBaseline = std::min(Best(measured.baseline), Best(measured.baselineAgain));
  const CTimes noise = Ratios(measured.baselineAgain, measured.baseline);
  std::printf("%-34s %8s %7s %7s %16s %7s\n", "", "ms", "ratio", "best", "a/a", "target");
  std::printf("%-34s %8.0f\n", baseline.name.c_str(), Median(measured.baseline));
  for (size_t i = 0; i < sides.size(); ++i) {
    const double ratio = MedianRatio(measured.sides[i], measured.baseline);
    std::printf("%-34s %8.0f %7.3f %7.3f %7.3f +- %.3f", sides[i].name.c_str(), Median(measured.sides[i]),
                ratio, Best(measured.sides[i]) / bestBaseline, Median(noise), Spread(noise));
    if (sides[i].target != 0) std::printf(" %7.2f  %s", sides[i].target, Verdict(ratio, sides[i].target));
    std::printf("\n");
  }
  std::fflush(stdout);
}

void PrintFigure(const std::string& name, double figure, const char* unit, double target) {
  std::printf("%-34s %8.3f %s", name.c_str(), figure, unit);
  if (target != 0) std::printf("  target %.2f  %s", target, Verdict(figure, target));
  std::printf("\n");
  std::fflush(stdout);
}

}  // namespace bench
