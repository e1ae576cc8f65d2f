#pragma once

#include <cstdint>
#include <string>

namespace bench {

// Folders "project_000" and so on, each with a few folders full of files. Wine gets slow in folders of more
// than 400 files.
struct CTreeShape {
  int projects = 0;
  int files = 250;  // in each folder of a project
  int bytes = 0;    // in each file
};

inline constexpr int kFoldersInProject = 4;

constexpr uint64_t FileCount(const CTreeShape& shape) {
  return uint64_t{1} * static_cast<uint64_t>(shape.projects * kFoldersInProject * shape.files);
}

std::wstring ProjectName(int index);

// The path of a tree of that shape below the root; makes it unless an earlier run has.
std::wstring EnsureTree(const std::wstring& root, const CTreeShape& shape);

// A bare loop over everything below a folder, whose path ends in "\". Answers the number of files.
uint64_t BareList(std::wstring& folder);

// Deletes a folder with all it holds.
void RemoveTree(const std::wstring& folder);

}  // namespace bench
