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
  std::vector<std::wstring> Paths() override { return m_clipboard.Paths(m_owner); }
  std::wstring Text() override { return m_clipboard.Text(m_owner).value_or(std::wstring()); }
  bool HasPathsOrText() const override { return m_clipboard.HasPathsOrText(); }

 private:
  HWND m_owner = nullptr;
  my::CClipboard m_clipboard;
};

}  // namespace qlm
