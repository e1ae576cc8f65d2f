// What the program says and asks in message boxes. GUI thread only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/exception.h"

namespace my {

class IMessageTexts;

// The kinds of boxes; the values are the styles of the system's message boxes.
enum class BoxStyle : uint32_t {
  FAILURE = 0x10,   // an error, with OK
  QUESTION = 0x31,  // a warning, with OK and Cancel
};

enum class BoxButton : int { OK = 1, CANCEL = 2 };

// The box itself, over the active window or else over the program's own.
class IMessageBox {
 public:
  virtual ~IMessageBox() = default;

  // Returns the button that was pressed.
  virtual BoxButton Show(const std::wstring& text, const std::wstring& caption, BoxStyle style) = 0;
};

class CMsg {
 public:
  virtual ~CMsg() = default;

  virtual void ShowError(const CException& failure) = 0;
  virtual BoxButton Show(const std::wstring& text, BoxStyle style) = 0;

  // Whether the user's edits may be lost.
  virtual bool ConfirmDiscard() = 0;

  // A question with OK and Cancel; true for OK.
  virtual bool Ask(uint32_t id, std::vector<CMsgArg> args = {}) = 0;
};

class CMessageBoxMsg : public CMsg {
 public:
  CMessageBoxMsg(const IMessageTexts& texts, IMessageBox& box) : m_texts(texts), m_box(box) {}

  void ShowError(const CException& failure) override;
  BoxButton Show(const std::wstring& text, BoxStyle style) override;
  bool ConfirmDiscard() override;
  bool Ask(uint32_t id, std::vector<CMsgArg> args = {}) override;

 private:
  const std::wstring& Caption(BoxStyle style);

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
