// Version resources of programs.
#pragma once

#include <optional>
#include <string>

namespace my {

// Texts in the first language of the resource; empty if missing.
struct CFileVersion {
  std::wstring product;
  std::wstring version;  // product version
};

// Reads the version of a program file. Returns nullopt if the file cannot be read or has no version resource.
std::optional<CFileVersion> ReadFileVersion(const std::wstring& path);

}  // namespace my
