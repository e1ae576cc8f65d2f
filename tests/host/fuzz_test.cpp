#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/targets.h"

namespace {

// Also every part of a file: fuzzers find most faults in truncated input.
TEST(Fuzz, properties_hold_for_the_corpus) {
  for (const fuzz::CTarget& target : fuzz::kTargets) {
    const auto folder = std::filesystem::path(QLM_SOURCE_DIR "/tests/fuzz/corpus") / target.name;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
      std::ifstream stream(file.path(), std::ios::binary);
      const std::string input{std::istreambuf_iterator<char>(stream), {}};
      for (size_t length = input.size();; length = length * 3 / 4) {
        EXPECT_NO_THROW(target.run(input.substr(0, length))) << file.path() << " up to " << length;
        if (length == 0) break;
      }
    }
  }
}

}  // namespace
