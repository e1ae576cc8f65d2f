#pragma once

#include <cstdint>
#include <string>

namespace bench {

// The shape of a file tree: projects "project_000" and so on, each with a few folders of files. Wine gets
// slow in folders of more than 400 files.
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

// Returns the path of a tree of this shape under `root`; creates it unless an earlier run did.
std::wstring EnsureTree(const std::wstring& root, const CTreeShape& shape);

// Lists everything under `folder`, which ends in "\", with a bare loop. Returns the number of files.
uint64_t BareList(std::wstring& folder);

// Deletes a folder and its contents.
void RemoveTree(const std::wstring& folder);

}  // namespace bench
