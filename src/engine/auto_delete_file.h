#pragma once

#include <string>

#include "support/exception.h"

namespace my {
class IFileSystem;
class IMessageTexts;
}  // namespace my

namespace qlm {

// Owns a path; the destructor deletes the file or folder.
class CAutoDeleteFile {
 public:
  enum class Kind { File, Folder };
  enum class OnFailure { KeepError, Throw };

  CAutoDeleteFile(my::IFileSystem& files, const my::IMessageTexts& texts, std::wstring path,
                  Kind kind = Kind::File, OnFailure onFailure = OnFailure::KeepError);
  CAutoDeleteFile(const CAutoDeleteFile&) = delete;
  CAutoDeleteFile& operator=(const CAutoDeleteFile&) = delete;
  virtual ~CAutoDeleteFile();  // never throws

  // Deletes at once. The path is then empty, and an empty path is never deleted. A failure is stored in Error
  // or thrown as a my::CCtrlException (IDS_DELETE_FAILED).
  void Delete();

  const std::wstring& Path() const { return m_path; }
  const my::CSimpleErr& Error() const { return m_error; }  // of the deletion; no error if it succeeded

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
