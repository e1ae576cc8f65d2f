#include "platform/win32/win32_hash.h"

#include <windows.h>

#include <wincrypt.h>

#include "platform/win32/handle.h"
#include "platform/win32/last_error.h"
#include "support/exception.h"
#include "text_ids.h"

namespace my {
namespace {

BOOL ReleaseProvider(HCRYPTPROV provider) {
  return ::CryptReleaseContext(provider, 0);
}

using CProvider = CHandle<HCRYPTPROV, &ReleaseProvider>;
using CHashHandle = CHandle<HCRYPTHASH, &::CryptDestroyHash>;

// Throws the last error if the call failed. Must wrap the call itself, before anything can change the last
// error.
void Check(BOOL success, uint32_t message) {
  if (!success) throw CException(message, {LastError()});
}

CProvider AcquireProvider() {
  constexpr wchar_t kProvider[] = L"Microsoft Strong Cryptographic Provider";
  HCRYPTPROV provider = 0;
  if (::CryptAcquireContextW(&provider, nullptr, kProvider, PROV_RSA_FULL, 0)) return CProvider(provider);
  // A user without a key container gets one (CRYPT_NEWKEYSET).
  Check(::CryptAcquireContextW(&provider, nullptr, kProvider, PROV_RSA_FULL, CRYPT_NEWKEYSET),
        IDS_CRYPT_INIT_FAILED);
  return CProvider(provider);
}

CHashHandle CreateHash(const CProvider& provider) {
  HCRYPTHASH hash = 0;
  Check(::CryptCreateHash(provider.Get(), CALG_MD5, 0, 0, &hash), IDS_HASH_INIT_FAILED);
  return CHashHandle(hash);
}

void AddData(const CHashHandle& hash, std::string_view bytes) {
  const char* const data = bytes.empty() ? "" : bytes.data();  // must not be null, even for no bytes
  Check(::CryptHashData(hash.Get(), reinterpret_cast<const BYTE*>(data), static_cast<DWORD>(bytes.size()), 0),
        IDS_HASH_DATA_FAILED);
}

std::string Digest(const CHashHandle& hash) {
  DWORD size = 0;
  DWORD sizeOfSize = sizeof(size);
  Check(::CryptGetHashParam(hash.Get(), HP_HASHSIZE, reinterpret_cast<BYTE*>(&size), &sizeOfSize, 0),
        IDS_HASH_SIZE_FAILED);
  std::string digest(size, '\0');
  Check(::CryptGetHashParam(hash.Get(), HP_HASHVAL, reinterpret_cast<BYTE*>(digest.data()), &size, 0),
        IDS_HASH_VALUE_FAILED);
  return digest;
}

}  // namespace

std::string CWin32Hash::Md5(std::string_view bytes) const {
  const CProvider provider = AcquireProvider();
  const CHashHandle hash = CreateHash(provider);  // destroyed before its provider
  AddData(hash, bytes);
  return Digest(hash);
}

}  // namespace my
