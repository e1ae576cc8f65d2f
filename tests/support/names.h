// Names of states, phases and messages, for the output of failed tests.
#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <regex>
#include <string>

namespace qlm {
enum class Phase : uint32_t;
enum class RunState : uint32_t;
}  // namespace qlm

namespace test {

// Maps the first group of `form` to the second, for every matching line of a file in res.
std::map<std::string, std::string> ReadPairs(const std::string& file, const std::regex& form);

// Returns "STOPPED" for IDS_STOPPED.
std::string NameOf(uint32_t textId);

// Returns "CREATED" for Phase::Created, whose value is IDS_PHASE_CREATED.
template <class TEnum>
requires std::is_enum_v<TEnum> std::string NameOf(TEnum value) {
  const std::string name = NameOf(static_cast<uint32_t>(value));
  return name.substr(name.find('_') + 1);
}

}  // namespace test

namespace qlm {

inline void PrintTo(Phase phase, std::ostream* out) {
  *out << test::NameOf(phase);
}

inline void PrintTo(RunState state, std::ostream* out) {
  *out << test::NameOf(state);
}

}  // namespace qlm
