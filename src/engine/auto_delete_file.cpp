#include "engine/auto_delete_file.h"

#include <utility>

#include "platform/file_system.h"

namespace qlm {

CAutoDeleteFile::CAutoDeleteFile(my::IFileSystem& files, std::wstring path, Kind kind, OnFailure onFailure)
    : m_files(files), m_kind(kind), m_onFailure(onFailure), m_path(std::move(path)) {}

CAutoDeleteFile::~CAutoDeleteFile() {
  m_onFailure = OnFailure::KEEP_ERROR;
  try {
    Delete();
  } catch (...) {
    m_failed = true;  // there is nobody left to tell
  }
}

void CAutoDeleteFile::Delete() {
  const std::wstring path = std::exchange(m_path, {});
  if (path.empty()) return;
  try {
    DeletePath(path);
  } catch (const my::CException& failure) {
    m_failed = true;
    if (m_onFailure == OnFailure::THROW) throw my::CCtrlException(failure.Id(), failure.Args());
  }
}

void CAutoDeleteFile::DeletePath(const std::wstring& path) {
  if (m_kind == Kind::FOLDER) return m_files.RemoveFolder(path);
  m_files.RemoveFile(path);
}

}  // namespace qlm
