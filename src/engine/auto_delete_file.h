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

  CAutoDeleteFile(my::IFileSystem& files, std::wstring path, Kind kind = Kind::FILE,
                  OnFailure onFailure = OnFailure::KEEP_ERROR);
  CAutoDeleteFile(const CAutoDeleteFile&) = delete;
  CAutoDeleteFile& operator=(const CAutoDeleteFile&) = delete;
  virtual ~CAutoDeleteFile();  // never throws

  // Deletes now, once: the path is empty afterwards, and an empty path is never deleted. A failure is kept,
  // or thrown as a my::CCtrlException (IDS_DELETE_FAILED).
  void Delete();

  const std::wstring& Path() const { return m_path; }
  bool Failed() const { return m_failed; }

 private:
  void DeletePath(const std::wstring& path);

  my::IFileSystem& m_files;
  bool m_failed = false;
  Kind m_kind;
  OnFailure m_onFailure;
  std::wstring m_path;
};

}  // namespace qlm
