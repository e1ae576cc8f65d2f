#pragma once

#include <string>
#include <string_view>

namespace my {

class IHash {
 public:
  virtual ~IHash() = default;

  // Returns the 16 bytes of the MD5 digest. Throws IDS_CRYPT_INIT_FAILED, IDS_HASH_INIT_FAILED,
  // IDS_HASH_DATA_FAILED, IDS_HASH_SIZE_FAILED or IDS_HASH_VALUE_FAILED. Any thread may call.
  virtual std::string Md5(std::string_view bytes) const = 0;
};

}  // namespace my
