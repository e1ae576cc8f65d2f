#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace test {

// Returns the bytes of a file in tests/host/golden.
inline std::string Golden(const std::string& name) {
#ifdef _WIN32
  const std::string root = "Z:" QLM_SOURCE_DIR;
#else
  const std::string root = QLM_SOURCE_DIR;
#endif
  std::ifstream stream(root + "/tests/host/golden/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace test
