#include "app/file_questions.h"

#include <utility>

#include "document/file_formats.h"
#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {
namespace {

template <class TFormat>
CFileKind KindOf(const my::IMessageTexts& texts, uint32_t labelId, TFormat format) {
  return {texts.Text(labelId), std::wstring(FormatOf(format).pattern)};
}

}  // namespace

CFileQuestion OpenDocumentQuestion(const my::IMessageTexts& texts, std::wstring initialPath) {
  return {
      FileDialog::OpenFile,
      std::move(initialPath),
      {KindOf(texts, IDS_DOCUMENT_KIND, FileFormat::QLMR), KindOf(texts, IDS_XML_FILE_KIND, FileFormat::XML)},
      {}};
}

CFileQuestion SaveDocumentQuestion(const my::IMessageTexts& texts, std::wstring initialPath) {
  CFileQuestion question = OpenDocumentQuestion(texts, std::move(initialPath));
  question.dialog = FileDialog::SaveFile;
  question.defaultExtension = FormatOf(FileFormat::QLMR).extension;
  return question;
}

CFileQuestion FilterQuestion(const my::IMessageTexts& texts, std::wstring initialPath) {
  return {FileDialog::OpenFilter,
          std::move(initialPath),
          {KindOf(texts, IDS_FILTER_FILES, FilterFormat::FLT),
           KindOf(texts, IDS_FILTER_TEXT_FILES, FilterFormat::TXT)},
          std::wstring(FormatOf(FilterFormat::FLT).extension)};
}

}  // namespace qlm
