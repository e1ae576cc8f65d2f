#pragma once

#include "app/windows.h"
#include "ui/framework/clipboard.h"

namespace qlm {

class CDocumentClipboard : public IClipboard {
 public:
  CDocumentClipboard() : m_clipboard(L"Quillmoor.Document") {}

  // Must be called before the other functions, with a window of the calling thread.
  void SetOwner(HWND owner) { m_owner = owner; }

  void Set(const CClip& clip) override;
  std::optional<std::string> Document() override { return m_clipboard.Bytes(m_owner); }
  bool HasDocument() const override { return m_clipboard.HasBytes(); }

 private:
  HWND m_owner = nullptr;
  my::CClipboard m_clipboard;
};

}  // namespace qlm
