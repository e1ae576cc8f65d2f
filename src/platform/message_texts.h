// The port for message texts, and the functions that format them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "support/exception.h"

namespace my {

// Any thread may call.
class IMessageTexts {
 public:
  virtual ~IMessageTexts() = default;

  // Returns the text of a string-table id; empty if there is none.
  virtual std::wstring Text(uint32_t id) const = 0;

  // Returns the system's text for an HRESULT in one line; empty if there is none.
  virtual std::wstring SystemText(int32_t hresult) const = 0;
};

// Returns the text of an id, with each "%s" replaced by the next argument.
std::wstring MakeText(const IMessageTexts& texts, uint32_t id, std::span<const CMsgArg> args);

// Returns the text to show for a failure.
std::wstring MakeErrorText(const IMessageTexts& texts, const CException& failure);

// Runs `work` and returns what it threw as a stored error; its code is 0 if nothing was thrown.
template <class Work>
CSimpleErr TrapError(const IMessageTexts& texts, Work&& work);

// Converts the current exception to a stored error. For use in a catch block.
CSimpleErr CurrentError(const IMessageTexts& texts);

template <class Work>
CSimpleErr TrapError(const IMessageTexts& texts, Work&& work) {
  try {
    work();
    return {};
  } catch (...) {
    return CurrentError(texts);
  }
}

}  // namespace my
