#pragma once

#include "platform/ansi_codec.h"

namespace my {

class CWin32AnsiCodec : public IAnsiCodec {
 public:
  std::wstring Decode(std::string_view bytes) const override;
};

}  // namespace my
