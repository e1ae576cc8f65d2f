#pragma once

#include <cstdint>

#include "support/exception.h"

namespace test {

// Returns the message id that `work` throws, 0 for none.
template <class Work>
uint32_t ThrownId(Work&& work) {
  try {
    work();
    return 0;
  } catch (const my::CException& failure) {
    return failure.Id();
  }
}

}  // namespace test
