// Where the texts of messages come from, and the one place where a message's text is made.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "support/exception.h"

namespace my {

// Callable from any thread.
class IMessageTexts {
 public:
  virtual ~IMessageTexts() = default;

  // The text of a string-table id, empty when there is none.
  virtual std::wstring Text(uint32_t id) const = 0;

  // The operating system's own text for an HRESULT on one line, empty when it has none.
  virtual std::wstring SystemText(int32_t hresult) const = 0;
};

// The text of an id with its arguments in place of each "%s", in order.
std::wstring MakeText(const IMessageTexts& texts, uint32_t id, std::span<const CMsgArg> args);

// The text to show for a failure.
std::wstring MakeErrorText(const IMessageTexts& texts, const CException& failure);

// Runs `work` and answers what it threw as a stored error; without one its code is 0.
template <class Work>
CSimpleErr TrapError(const IMessageTexts& texts, Work&& work);

// What a caught exception is stored as. To be called from a catch block.
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
