#include "run/warning.h"

#include "platform/console.h"
#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {

void Warn(my::IConsole& console, const my::IMessageTexts& texts, std::wstring text) {
  const my::CMsgArg warning = std::move(text);
  console.Write(my::IConsole::Stream::Errors, my::MakeText(texts, IDS_WARNING, {&warning, 1}) + L"\n");
}

}  // namespace qlm
