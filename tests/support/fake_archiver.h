#pragma once

#include <algorithm>
#include <string>

#include "platform/process.h"
#include "support/memory_file_system.h"

namespace test {

// Returns the end record of a zip archive with this many entries.
inline std::string EndRecord(size_t entries) {
  std::string record = "PK\5\6" + std::string(18, '\0');
  record[8] = record[10] = static_cast<char>(entries & 0xFF);
  record[9] = record[11] = static_cast<char>(entries >> 8);
  return record;
}

// Acts as the archiver: writes an archive with the list and an end record for its entries.
inline uint32_t MakeArchive(CMemoryFileSystem& files, const my::CProcessStart& start) {
  const size_t listAt = start.arguments.rfind(L" @");
  const size_t nameAt = start.arguments.rfind(L' ', listAt - 1) + 1;
  const std::string list = files.Files().at(start.arguments.substr(listAt + 2));
  const auto entries = static_cast<size_t>(std::count(list.begin(), list.end(), '\n'));
  files.AddUnflushedFile(start.arguments.substr(nameAt, listAt - nameAt), list + EndRecord(entries));
  return 0;
}

}  // namespace test
