// What the program says and asks in message boxes. GUI thread only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/exception.h"

namespace my {

class IMessageTexts;

// The values are those of the system's message boxes.
inline constexpr uint32_t kBoxOkCancel = 0x1;
inline constexpr uint32_t kBoxIconError = 0x10;
inline constexpr uint32_t kBoxIconWarning = 0x30;
inline constexpr uint32_t kBoxIconMask = 0xF0;
inline constexpr int kButtonOk = 1;
inline constexpr int kButtonCancel = 2;

// The box itself, over the active window or else over the program's own.
class IMessageBox {
 public:
  virtual ~IMessageBox() = default;

  // Answers the button that was pressed.
  virtual int Show(const std::wstring& text, const std::wstring& caption, uint32_t style) = 0;
};

class CMsg {
 public:
  virtual ~CMsg() = default;

  virtual void ShowError(const CException& failure) = 0;
  virtual int Show(const std::wstring& text, uint32_t style) = 0;

  // Whether the user's edits may be lost.
  virtual bool ConfirmDiscard() = 0;

  // A question with OK and Cancel; true for OK.
  virtual bool Ask(uint32_t id, std::vector<CMsgArg> args = {}) = 0;
};

class CMessageBoxMsg : public CMsg {
 public:
  CMessageBoxMsg(const IMessageTexts& texts, IMessageBox& box) : m_texts(texts), m_box(box) {}

  void ShowError(const CException& failure) override;
  int Show(const std::wstring& text, uint32_t style) override;
  bool ConfirmDiscard() override;
  bool Ask(uint32_t id, std::vector<CMsgArg> args = {}) override;

 private:
  const std::wstring& Caption(bool isError);

  const IMessageTexts& m_texts;
  IMessageBox& m_box;
  std::wstring m_errorCaption;  // read on first use
  std::wstring m_confirmCaption;
};

}  // namespace my

namespace qlm {

class CDocument;

// Asks about edits only when there are any.
class CMsg : public my::CMessageBoxMsg {
 public:
  CMsg(const my::IMessageTexts& texts, my::IMessageBox& box, const CDocument& document)
      : CMessageBoxMsg(texts, box), m_document(document) {}

  bool ConfirmDiscard() override;

 private:
  const CDocument& m_document;
};

}  // namespace qlm
