// Message boxes of the program. GUI thread only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/exception.h"

namespace my {

class IMessageTexts;

// The types of boxes. The values are MB_ styles of the Windows API.
enum class BoxStyle : uint32_t {
  Failure = 0x10,   // an error, with OK
  Question = 0x31,  // a warning, with OK and Cancel
};

enum class BoxButton : int { Ok = 1, Cancel = 2 };

// Shows a box over the active window, or over the main window if none is active.
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

  // Asks whether edits may be discarded.
  virtual bool ConfirmDiscard() = 0;

  // Asks a question with OK and Cancel; returns true for OK.
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
  std::wstring m_errorCaption;  // loaded on first use
  std::wstring m_confirmCaption;
};

}  // namespace my

namespace qlm {

class CDocument;

// Asks about edits only if there are any.
class CMsg : public my::CMessageBoxMsg {
 public:
  CMsg(const my::IMessageTexts& texts, my::IMessageBox& box, const CDocument& document)
      : CMessageBoxMsg(texts, box), m_document(document) {}

  bool ConfirmDiscard() override;

 private:
  const CDocument& m_document;
};

}  // namespace qlm
