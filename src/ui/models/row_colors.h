// The states of result rows, their colours and their texts in the lists.
#pragma once

#include <string>

#include "ui/framework/list_model.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CResult;
struct CUISetting;

// The first four are in the order of the state colours in the settings. Incomplete has no colour there: the
// row ended without an error, but folders of its source could not be listed.
enum class ResultState { Created, Running, NotUpdated, Failed, Incomplete };

// Returns phase or error of a row, and the first folder that could not be listed, with the reason; in one
// line.
std::wstring RowText(const my::IMessageTexts& texts, const CResult& result);

// Returns the text of a row with what to do about its error, in a second line; empty for a row without error.
std::wstring RowDetail(const my::IMessageTexts& texts, const CResult& result);

ResultState StateOf(const CResult& result);
my::CListLook StateLook(const CUISetting& setting, ResultState state);

}  // namespace qlm
