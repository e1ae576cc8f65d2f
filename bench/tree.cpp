#include "tree.h"

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <filesystem>

#include "platform/win32/handle.h"
#include "platform/win32/win32_file_system.h"
#include "support/paths.h"

namespace bench {
namespace {

constexpr const wchar_t* kFolders[kFoldersInProject] = {L"src", L"docs", L"Photos 2024", L"data_export"};
constexpr const wchar_t* kStems[] = {L"report",     L"invoice_",    L"IMG_",
                                     L"letter to ", L"main_window", L"notes-"};
constexpr const wchar_t* kExtensions[] = {L".txt", L".docx", L".cpp", L".jpg", L".h", L".pdf", L".xlsx"};

// One file in fifty has the extension .tmp, which filters often exclude.
std::wstring FileName(int index) {
  const wchar_t* const extension = index % 50 == 0 ? L".tmp" : kExtensions[index % std::size(kExtensions)];
  return kStems[index % std::size(kStems)] + std::to_wstring(1000 + index) + extension;
}

void FillFolder(my::IFileSystem& files, const std::wstring& folder, const CTreeShape& shape) {
  files.CreateFolders(folder);
  for (int i = 0; i < shape.files; ++i) {
    const auto file = files.CreateNewFile(my::JoinPath(folder, FileName(i)));
    file->Write(std::string(static_cast<size_t>(shape.bytes), static_cast<char>('a' + i % 26)));
    file->Close();
  }
}

bool IsDots(const wchar_t* name) {
  return std::wcscmp(name, L".") == 0 || std::wcscmp(name, L"..") == 0;
}

}  // namespace

std::wstring ProjectName(int index) {
  std::wstring digits = std::to_wstring(index);
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), L'0');
  return L"project_" + digits;
}

std::wstring EnsureTree(const std::wstring& root, const CTreeShape& shape) {
  my::CWin32FileSystem files;
  const std::wstring tree =
      my::JoinPath(root, std::to_wstring(shape.projects) + L"x" + std::to_wstring(shape.files) + L"x" +
                             std::to_wstring(shape.bytes));
  const std::wstring marker = tree + L".complete";
  if (files.Kind(marker) != my::PathKind::None) return tree;
  std::fprintf(stderr, "making a tree of %llu files\n", static_cast<unsigned long long>(FileCount(shape)));
  RemoveTree(tree);
  for (int i = 0; i < shape.projects; ++i) {
    const std::wstring project = my::JoinPath(tree, ProjectName(i));
    for (const wchar_t* const folder : kFolders) FillFolder(files, my::JoinPath(project, folder), shape);
  }
  files.CreateNewFile(marker, my::FileLife::Kept)->Close();
  return tree;
}

uint64_t BareList(std::wstring& folder) {
  const size_t length = folder.size();
  folder += L"*.*";
  WIN32_FIND_DATAW data;
  const my::CHandle<HANDLE, &::FindClose> find(::FindFirstFileW(folder.c_str(), &data));
  folder.resize(length);
  if (!find) return 0;
  uint64_t count = 0;
  do {
    if (!(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
      ++count;
    } else if (!IsDots(data.cFileName)) {
      folder.append(data.cFileName).append(1, my::kSeparator);
      count += BareList(folder);
      folder.resize(length);
    }
  } while (::FindNextFileW(find.Get(), &data));
  return count;
}

void RemoveTree(const std::wstring& folder) {
  std::filesystem::remove_all(folder);
}

}  // namespace bench
