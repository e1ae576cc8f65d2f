#include "ui/models/filter_question.h"

#include <utility>

#include "app/windows.h"
#include "document/file_formats.h"
#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {
CFileQuestion FilterQuestion(const my::IMessageTexts& texts, std::wstring initialPath) {
  const auto pattern = [](FilterFormat format) { return std::wstring(FormatOf(format).pattern); };
  return {std::move(initialPath),
          {{texts.Text(IDS_FILTER_FILES), pattern(FilterFormat::FLT)},
           {texts.Text(IDS_FILTER_TEXT_FILES), pattern(FilterFormat::TXT)}},
          std::wstring(FormatOf(FilterFormat::FLT).extension),
          kDialogExplorer | kDialogFileMustExist | kDialogHideReadOnly | kDialogNoChangeDir};
}

}  // namespace qlm
