#include "ui/models/filter_question.h"

#include <utility>

#include "app/windows.h"
#include "platform/message_texts.h"
#include "resource.h"

namespace qlm {
namespace {

constexpr uint32_t kHideReadOnly = 0x4;
constexpr uint32_t kNoChangeDir = 0x8;
constexpr uint32_t kFileMustExist = 0x1000;
constexpr uint32_t kExplorer = 0x80000;

}  // namespace

CFileQuestion FilterQuestion(const my::IMessageTexts& texts, std::wstring initialPath) {
  return {std::move(initialPath),
          {{texts.Text(IDS_FILTER_FILES), L"*.flt"}, {texts.Text(IDS_FILTER_TEXT_FILES), L"*.txt"}},
          L"flt",
          kExplorer | kFileMustExist | kHideReadOnly | kNoChangeDir};
}

}  // namespace qlm
