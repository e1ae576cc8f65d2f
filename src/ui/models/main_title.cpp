#include "ui/models/main_title.h"

#include "document/document.h"
#include "platform/message_texts.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {

std::wstring MainTitle(const my::IMessageTexts& texts, const CDocument& document,
                       std::optional<int> percent) {
  std::wstring title(my::LastComponent(document.Path()));
  if (title.empty()) title = texts.Text(IDS_UNTITLED);
  if (document.IsModified()) title += L"*";
  title.append(L" - ").append(texts.Text(IDS_DISPLAY_NAME));
  if (!percent) return title;
  const my::CMsgArg parts[] = {std::to_wstring(*percent), title};
  return my::MakeText(texts, IDS_TITLE_PERCENT, parts);
}

}  // namespace qlm
