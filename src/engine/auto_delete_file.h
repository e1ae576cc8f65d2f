#pragma once

#include <string>

#include "support/exception.h"

namespace my {
class IFileSystem;
class IMessageTexts;
}  // namespace my

namespace qlm {

// Owns one path and deletes what is there when it goes away.
class CAutoDeleteFile {
 public:
  enum class Kind { FILE, FOLDER };
  enum class OnFailure { KEEP_ERROR, THROW };

  CAutoDeleteFile(my::IFileSystem& files, const my::IMessageTexts& texts, std::wstring path,
                  Kind kind = Kind::FILE, OnFailure onFailure = OnFailure::KEEP_ERROR);
  CAutoDeleteFile(const CAutoDeleteFile&) = delete;
  CAutoDeleteFile& operator=(const CAutoDeleteFile&) = delete;
  virtual ~CAutoDeleteFile();  // never throws

  // Deletes now, once: the path is empty afterwards, and an empty path is never deleted. A failure is kept,
  // or thrown as a my::CCtrlException (IDS_DELETE_FAILED).
  void Delete();

  const std::wstring& Path() const { return m_path; }
  const my::CSimpleErr& Error() const { return m_error; }  // of the deletion; not set if it succeeded

 private:
  void DeletePath(const std::wstring& path);

  my::CSimpleErr m_error;
  bool m_isFolder;
  bool m_throws;
  std::wstring m_path;
  my::IFileSystem& m_files;
  const my::IMessageTexts& m_texts;
};

}  // namespace qlm
