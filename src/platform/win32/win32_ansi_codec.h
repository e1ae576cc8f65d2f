#pragma once

#include <cstdint>

#include "platform/ansi_codec.h"

namespace my {

class CWin32AnsiCodec : public IAnsiCodec {
 public:
  // `codePage` 0 (CP_ACP) is the system's own.
  explicit CWin32AnsiCodec(uint32_t codePage = 0) : m_codePage(codePage) {}

  std::wstring Decode(std::string_view bytes) const override;
  std::optional<std::string> Encode(std::wstring_view text) const override;

 private:
  uint32_t m_codePage;
};

}  // namespace my
