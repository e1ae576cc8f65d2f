#include "ui/framework/file_version.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <vector>

#include "support/value_codecs.h"

namespace my {
namespace {

// Not const, because the query functions may write to the block.
using CBlock = std::vector<std::byte>;

std::wstring TextOf(CBlock& block, const std::wstring& language, const wchar_t* name) {
  const std::wstring key = L"\\StringFileInfo\\" + language + L"\\" + name;
  void* text = nullptr;
  UINT length = 0;
  if (!::VerQueryValueW(block.data(), key.c_str(), &text, &length) || length == 0) return {};
  return static_cast<const wchar_t*>(text);
}

// Returns language and code page of the texts, in the form of their key: eight hexadecimal digits.
std::optional<std::wstring> LanguageOf(CBlock& block) {
  void* value = nullptr;
  UINT size = 0;
  WORD translation[2];
  if (!::VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation", &value, &size)) return {};
  if (size < sizeof translation) return {};
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
  DWORD ignored = 0;
  CBlock block(::GetFileVersionInfoSizeW(path.c_str(), &ignored));
  if (block.empty()) return {};
  if (!::GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data())) return {};
  return VersionOf(std::move(block));
}

CFileVersion OwnVersion() {
  const HRSRC resource = ::FindResourceW(nullptr, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
  const HGLOBAL loaded = resource ? ::LoadResource(nullptr, resource) : nullptr;
  const auto* bytes = loaded ? static_cast<const std::byte*>(::LockResource(loaded)) : nullptr;
  if (!bytes) return {};
  return VersionOf(CBlock(bytes, bytes + ::SizeofResource(nullptr, resource))).value_or(CFileVersion{});
}

}  // namespace my
