#pragma once

#include <string>
#include <string_view>

namespace my {

class IAnsiCodec {
 public:
  virtual ~IAnsiCodec() = default;

  // Text in the system's ANSI code page; every byte that is none of it becomes U+FFFD.
  virtual std::wstring Decode(std::string_view bytes) const = 0;
};

}  // namespace my
