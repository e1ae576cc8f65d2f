// The states of result rows, their colours and their texts in the lists.
#pragma once

#include <optional>
#include <string>

#include "ui/framework/list_model.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CResult;
struct CUISetting;

// The icons of the lists are in this order, and the first four are in the order of the state colours in the
// settings. Incomplete has no colour there: the row ended without an error, but folders of its source could
// not be listed.
enum class ResultState { Created, Running, NotUpdated, Failed, Incomplete };
inline constexpr int kStateCount = 5;

// Returns phase or error of a row, and the first folder that could not be listed, with the reason; in one
// line.
std::wstring RowText(const my::IMessageTexts& texts, const CResult& result);

// Returns the text of a row with what to do about its error, in a second line; empty for a row without error.
std::wstring RowDetail(const my::IMessageTexts& texts, const CResult& result);

ResultState StateOf(const CResult& result);
my::CListLook StateLook(const CUISetting& setting, ResultState state);

// What is behind the rows of a list.
struct CRowGround {
  my::CColor text;       // of rows without a colour of their own
  my::CColor grey;       // of disabled rows
  double luminance = 0;  // of the pixel closest to the text colour
};

struct CRowColors {
  my::CColor text;
  std::optional<my::CColor> back;   // empty: the ground
  std::optional<my::CColor> frame;  // empty: none
};

enum class RowSelection { None, Inactive, Active };  // inactive: the list does not have the focus

// Returns colours that are readable on every pixel of the ground, and a selection that contrasts with it.
CRowColors RowColors(const my::CListLook& look, RowSelection selection, const CRowGround& ground);

}  // namespace qlm
