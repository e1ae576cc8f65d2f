// Archives are made by the external archiver 7z.exe, which is handed a list of the files to add.
#pragma once

#include <string>
#include <string_view>

#include "document/dst.h"
#include "engine/fresh_files.h"

namespace my {
class IFileSystem;
class IMessageTexts;
class IProcess;
}  // namespace my

namespace qlm {

class CTargets;

struct CArchivePorts {
  CTransferPorts transfer;
  my::IProcess& process;
  const my::IMessageTexts& texts;
};

struct CArchiveJob {
  const std::wstring& archiverPath;
  const std::wstring& password;
  const std::wstring& source;
  const CTargets& targets;
  const std::wstring& archivePath;  // does not exist yet; its parent folder does
  DstType type;
};

// Archives every counted file of the list, verifies the archive instead of trusting the exit code, and
// flushes it to its device. A stop is noticed while the list is written; once the archiver runs, it is waited
// for. Throws IDS_STOPPED, IDS_TEMP_PATH_FAILED, IDS_CREATE_FILE_FAILED, IDS_WRITE_FILE_FAILED,
// IDS_CREATE_PROCESS_FAILED, IDS_PROCESS_EXIT_CODE, IDS_ARCHIVE_INCOMPLETE; a path that
// could not be passed is named behind the message.
void WriteArchive(const CArchivePorts& ports, const CArchiveJob& job);

// Returns whether the archiver would take the path for several arguments: its command line quotes none. An
// archive's path and the list's path in the system's temporary folder must not be split.
bool IsSplitByArchiver(std::wstring_view path);

// What stands before the archive's path on the archiver's command line. Throws IDS_INTERNAL_ERROR for a type
// that is no archive.
std::wstring ArchiverOptions(DstType type, const std::wstring& password);

}  // namespace qlm
