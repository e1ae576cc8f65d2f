#include "engine/auto_delete_file.h"

#include <utility>

#include "platform/file_system.h"
#include "platform/message_texts.h"

namespace qlm {

CAutoDeleteFile::CAutoDeleteFile(my::IFileSystem& files, const my::IMessageTexts& texts, std::wstring path,
                                 Kind kind, OnFailure onFailure)
    : m_isFolder(kind == Kind::Folder),
      m_throws(onFailure == OnFailure::Throw),
      m_path(std::move(path)),
      m_files(files),
      m_texts(texts) {}

CAutoDeleteFile::~CAutoDeleteFile() {
  m_throws = false;
  try {
    Delete();
  } catch (...) {  // a destructor cannot report it
  }
}

void CAutoDeleteFile::Delete() {
  const std::wstring path = std::exchange(m_path, {});
  if (path.empty()) return;
  try {
    DeletePath(path);
  } catch (const my::CException& failure) {
    m_error = my::CurrentError(m_texts);
    if (m_throws) throw my::CCtrlException(failure);
  }
}

void CAutoDeleteFile::DeletePath(const std::wstring& path) {
  if (m_isFolder) return m_files.RemoveFolder(path);
  m_files.RemoveFile(path);
}

}  // namespace qlm
