// Runs the target named by the environment variable QLM_TARGET under libFuzzer.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "fuzz/targets.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string_view name = std::getenv("QLM_TARGET");
  static const auto* const target = std::ranges::find(fuzz::kTargets, name, &fuzz::CTarget::name);
  target->run({reinterpret_cast<const char*>(data), size});
  return 0;
}
