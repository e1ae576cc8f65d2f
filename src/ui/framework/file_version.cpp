#include "ui/framework/file_version.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/win32/system_function.h"
#include "support/value_codecs.h"

namespace my {
namespace {

constexpr wchar_t kLibrary[] = L"version.dll";

// Not const, because the query functions may write to the block.
using CBlock = std::vector<std::byte>;

// Returns the value at `key`, of `size` bytes or characters; null if the block has none.
void* Query(CBlock& block, const wchar_t* key, UINT& size) {
  static const auto query = SystemFunction<decltype(::VerQueryValueW)>(kLibrary, "VerQueryValueW");
  void* value = nullptr;
  return query && query(block.data(), key, &value, &size) ? value : nullptr;
}

std::wstring TextOf(CBlock& block, const std::wstring& language, const wchar_t* name) {
  const std::wstring key = L"\\StringFileInfo\\" + language + L"\\" + name;
  UINT length = 0;
  const void* text = Query(block, key.c_str(), length);
  if (!text || length == 0) return {};
  return static_cast<const wchar_t*>(text);
}

// Returns language and code page of the texts, in the form of their key: eight hexadecimal digits.
std::optional<std::wstring> LanguageOf(CBlock& block) {
  UINT size = 0;
  const void* value = Query(block, L"\\VarFileInfo\\Translation", size);
  WORD translation[2];
  if (!value || size < sizeof translation) return {};
  std::memcpy(translation, value, sizeof translation);
  return HexText(static_cast<uint32_t>(translation[0]) << 16 | translation[1]).substr(2);
}

std::optional<CFileVersion> VersionOf(CBlock block) {
  const auto language = LanguageOf(block);
  if (!language) return {};
  return CFileVersion{TextOf(block, *language, L"ProductName"), TextOf(block, *language, L"ProductVersion")};
}

}  // namespace

std::optional<CFileVersion> ReadFileVersion(const std::wstring& path) {
  static const auto sizeOf =
      SystemFunction<decltype(::GetFileVersionInfoSizeW)>(kLibrary, "GetFileVersionInfoSizeW");
  static const auto read = SystemFunction<decltype(::GetFileVersionInfoW)>(kLibrary, "GetFileVersionInfoW");
  if (!sizeOf || !read) return {};
  DWORD ignored = 0;
  CBlock block(sizeOf(path.c_str(), &ignored));
  if (block.empty()) return {};
  if (!read(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data())) return {};
  return VersionOf(std::move(block));
}

}  // namespace my
