#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace my {

class IAnsiCodec {
 public:
  virtual ~IAnsiCodec() = default;

  // Decodes text in the system's ANSI code page. Invalid bytes become U+FFFD.
  virtual std::wstring Decode(std::string_view bytes) const = 0;

  // Encodes text in the same code page; nullopt if Decode would not return the same text.
  virtual std::optional<std::string> Encode(std::wstring_view text) const = 0;
};

}  // namespace my
