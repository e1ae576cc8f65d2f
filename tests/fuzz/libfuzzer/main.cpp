// Runs the target named by the environment variable QLM_TARGET under libFuzzer.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/targets.h"

namespace {

const fuzz::CTarget& Target() {
  const char* const name = std::getenv("QLM_TARGET");
  const auto* const found = std::ranges::find(fuzz::kTargets, name ? name : "", &fuzz::CTarget::name);
  if (found != fuzz::kTargets.end()) return *found;
  std::fputs("QLM_TARGET must be one of:", stderr);
  for (const fuzz::CTarget& target : fuzz::kTargets) std::fprintf(stderr, " %s", target.name.data());
  std::fputs("\n", stderr);
  std::exit(2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const fuzz::CTarget& target = Target();
  target.run({reinterpret_cast<const char*>(data), size});
  return 0;
}
