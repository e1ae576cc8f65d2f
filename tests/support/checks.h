// What many tests ask.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

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

// Returns whether a text has a part; a failed test shows the text.
template <class TChar>
testing::AssertionResult HasPart(std::basic_string_view<TChar> text, std::basic_string_view<TChar> part) {
  const bool found = text.find(part) != text.npos;
  return (found ? testing::AssertionSuccess() : testing::AssertionFailure())
         << testing::PrintToString(std::basic_string<TChar>(text));
}
inline testing::AssertionResult Has(std::wstring_view text, std::wstring_view part) {
  return HasPart(text, part);
}
inline testing::AssertionResult Has(std::string_view text, std::string_view part) {
  return HasPart(text, part);
}

// Returns the texts of a row of a list, each followed by "|".
template <class TModel>
std::wstring Line(const TModel& model, size_t row) {
  std::wstring line;
  for (size_t column = 0; column < model.ColumnCount(); ++column) line += model.Text(row, column) + L"|";
  return line;
}

// Returns the texts of a column of a list, joined.
template <class TModel>
std::wstring ColumnText(const TModel& model, size_t column) {
  std::wstring texts;
  for (size_t row = 0; row < model.RowCount(); ++row) texts += model.Text(row, column);
  return texts;
}

}  // namespace test
