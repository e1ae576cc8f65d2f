#include "settings/settings.h"

#include <random>

namespace qlm {

CSettings::CSettings(uint64_t seed) {
  design.random = std::mt19937(static_cast<uint32_t>(seed))();
}

}  // namespace qlm
