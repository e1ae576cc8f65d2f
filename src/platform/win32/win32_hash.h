#pragma once

#include "platform/hash.h"

namespace my {

class CWin32Hash : public IHash {
 public:
  std::string Md5(std::string_view bytes) const override;
};

}  // namespace my
