#include "ui/models/password_dsts.h"

#include "platform/message_texts.h"
#include "support/paths.h"
#include "support/strings.h"

namespace qlm {

std::wstring PasswordDstsText(const my::IMessageTexts& texts, const CTaskDsts& dsts) {
  std::wstring text;
  for (const CDstPtr& dst : dsts) {
    if (!text.empty()) text += L"\r\n";
    text +=
        my::OneLine(my::JoinPath(dst->folder, dst->pattern)) + L" - " + texts.Text(kDstTypeTexts[dst->type]);
  }
  return text;
}

}  // namespace qlm
