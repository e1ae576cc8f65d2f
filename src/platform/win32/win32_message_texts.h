#pragma once

#include "platform/message_texts.h"

namespace my {

// The string table of the running program and the messages of the system, in the current language.
class CWin32MessageTexts : public IMessageTexts {
 public:
  std::wstring Text(uint32_t id) const override;
  std::wstring SystemText(int32_t hresult) const override;
};

}  // namespace my
