#include "settings/settings.h"

#include <random>

namespace qlm {

CDesignSetting::CDesignSetting(uint64_t seed) : random(std::mt19937(static_cast<uint32_t>(seed))()) {}

}  // namespace qlm
