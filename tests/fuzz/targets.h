// Fuzz targets: each reads its values from arbitrary bytes and checks a property that holds for all of them.
// Fuzzers run them (scripts/soak.sh); the host tests run them over the corpus.
#pragma once

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "document/document.h"

namespace fuzz {

struct CTarget {
  std::string_view name;  // also of its folder in tests/fuzz/corpus
  void (*run)(std::string_view input);
};

// Throw CBroken, or anything else, if the property does not hold.
void TestDocument(std::string_view input);
void TestSettings(std::string_view input);
void TestClip(std::string_view input);
void TestFilter(std::string_view input);
void TestPattern(std::string_view input);
void TestReplace(std::string_view input);
void TestCommandLine(std::string_view input);
void TestNames(std::string_view input);

inline constexpr std::array kTargets = {
    CTarget{"document", TestDocument},   CTarget{"settings", TestSettings}, CTarget{"clip", TestClip},
    CTarget{"filter", TestFilter},       CTarget{"pattern", TestPattern},   CTarget{"replace", TestReplace},
    CTarget{"command", TestCommandLine}, CTarget{"names", TestNames}};

struct CBroken : std::logic_error {
  using std::logic_error::logic_error;
};

// Throws CBroken unless `holds`.
void Require(bool holds, const char* property);

// Takes values from the input, which has "~" between them.
class CValues {
 public:
  explicit CValues(std::string_view input) : m_rest(input) {}

  bool AtEnd() const { return m_rest.empty(); }
  std::string_view Bytes();

  // Returns the value as text. U+E000 to U+E7FF become lone surrogates, which UTF-8 cannot express.
  std::wstring Text();

 private:
  std::string_view m_rest;
};

// Returns the content of a document. The input is a document file if it starts with "<", otherwise a sequence
// of destinations ("D", number of the type ~ folder ~ pattern) and tasks ("T", digits: rows of destinations ~
// ID ~ path ~ filter). Returns nullopt if it is refused.
std::optional<qlm::CContent> ReadContent(std::string_view input);

bool SameDsts(const qlm::CDsts& a, const qlm::CDsts& b);
bool SameContent(const qlm::CContent& a, const qlm::CContent& b);

}  // namespace fuzz
