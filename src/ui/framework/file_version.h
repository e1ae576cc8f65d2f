// What the version resources of programs say.
#pragma once

#include <optional>
#include <string>

namespace my {

// The texts of the resource's first language; empty where it has none.
struct CFileVersion {
  std::wstring product;
  std::wstring version;  // of the product
};

// Of a program file; nothing when it cannot be read or has no such resource.
std::optional<CFileVersion> ReadFileVersion(const std::wstring& path);

// Of the running program.
CFileVersion OwnVersion();

}  // namespace my
