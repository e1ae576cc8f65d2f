#include "app/messenger.h"

#include "document/document.h"
#include "platform/message_texts.h"
#include "text_ids.h"

namespace my {

void CMessageBoxMsg::ShowError(const CException& failure) {
  Show(MakeErrorText(m_texts, failure), BoxStyle::Failure);
}

BoxButton CMessageBoxMsg::Show(const std::wstring& text, BoxStyle style) {
  return m_box.Show(text, Caption(style), style);
}

bool CMessageBoxMsg::ConfirmDiscard() {
  return Ask(IDS_ASK_DISCARD);
}

bool CMessageBoxMsg::Ask(uint32_t id, std::vector<CMsgArg> args) {
  return Show(MakeText(m_texts, id, args), BoxStyle::Question) == BoxButton::Ok;
}

const std::wstring& CMessageBoxMsg::Caption(BoxStyle style) {
  const bool isError = style == BoxStyle::Failure;
  std::wstring& caption = isError ? m_errorCaption : m_confirmCaption;
  if (caption.empty()) caption = m_texts.Text(isError ? IDS_CAPTION_ERROR : IDS_CAPTION_CONFIRM);
  return caption;
}

}  // namespace my

namespace qlm {

bool CMsg::ConfirmDiscard() {
  return !m_document.IsModified() || CMessageBoxMsg::ConfirmDiscard();
}

}  // namespace qlm
