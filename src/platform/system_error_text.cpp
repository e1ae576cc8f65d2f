#include "platform/system_error_text.h"

#include "platform/message_texts.h"
#include "support/value_codecs.h"

namespace my {

std::wstring SystemErrorText(const IMessageTexts& texts, CSystemError error) {
  const std::wstring code = HexText(static_cast<uint32_t>(error.hresult));
  const std::wstring text = texts.SystemText(error.hresult);
  return text.empty() ? code : text + L" (" + code + L")";
}

}  // namespace my
