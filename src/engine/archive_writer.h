// Archives are written by the external archiver 7z.exe, which reads the files to add from a list file.
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
class CTransferCounters;

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
  CTransferCounters& counters;  // follows the size of the archive
};

// Archives every counted file of the list, verifies the archive instead of trusting the exit code, and
// flushes it to its device. A stop request ends the writing of the list; a running archiver is waited for.
// Throws IDS_STOPPED, IDS_TEMP_PATH_FAILED, IDS_CREATE_FILE_FAILED, IDS_WRITE_FILE_FAILED,
// IDS_CREATE_PROCESS_FAILED, IDS_PROCESS_EXIT_CODE, IDS_ARCHIVE_INCOMPLETE, IDS_SOURCE_BECAME_LINK; the
// failure names a path that the archiver has split or misread.
void WriteArchive(const CArchivePorts& ports, const CArchiveJob& job);

// Returns whether the archiver would split the path into several arguments, because its command line is not
// quoted. Applies to the path of the archive and to the list file in the temporary folder.
bool IsSplitByArchiver(std::wstring_view path);

// Returns the options in front of the archive path. Throws IDS_INTERNAL_ERROR for a type that is not an
// archive.
std::wstring ArchiverOptions(DstType type, const std::wstring& password);

}  // namespace qlm
