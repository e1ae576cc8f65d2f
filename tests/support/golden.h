#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include "support/source_folder.h"

namespace test {

// Returns the bytes of a file in tests/host/golden.
inline std::string Golden(const std::string& name) {
  std::ifstream stream(InSourceTree("tests/host/golden/" + name), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace test
