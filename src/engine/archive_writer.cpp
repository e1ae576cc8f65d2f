#include "engine/archive_writer.h"

#include <algorithm>
#include <memory>

#include "document/name_pattern.h"
#include "engine/auto_delete_file.h"
#include "engine/source_guard.h"
#include "engine/targets.h"
#include "engine/task_base.h"
#include "engine/transfer_counters.h"
#include "engine/zip_end_record.h"
#include "platform/message_texts.h"
#include "platform/process.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/secret.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

struct CNewListFile {
  std::wstring path;
  std::unique_ptr<my::INewFile> file;
};

CNewListFile CreateListFile(my::IFileSystem& files) {
  CNewListFile list;
  list.path = my::TakeNumberedPath(files.TemporaryFolder(), L"qlm", L".txt", [&](const std::wstring& path) {
    list.file = files.CreateNewFile(path);
    return list.file != nullptr;
  });
  return list;
}

struct CWrittenList {
  uint64_t count = 0;
  std::wstring misread;  // a path that the archiver reads as another one; empty if there is none
};

// Writes a line for every counted file. The archiver drops spaces at the start of a line.
CWrittenList WriteList(my::INewFile& file, const CArchivePorts& ports, const CTargets& targets) {
  constexpr size_t kPortion = size_t{256} * 1024;  // bytes per write
  std::string lines;
  std::wstring path;
  CWrittenList written;
  for (const CTarget target : targets) {
    my::CheckStop(ports.transfer.stop);
    if (!target.IsCountedFile()) continue;
    path.clear();
    target.AppendRelativePath(path);
    lines += my::Utf8FromWide(path);
    lines += '\n';
    ++written.count;
    if (path.starts_with(L' ')) written.misread = path;
    if (lines.size() < kPortion) continue;
    file.Write(lines);
    lines.clear();
  }
  file.Write(lines);
  return written;
}

// Stores the size of the archive that the archiver is writing, under its own name because it is a new one.
// Opens the file, because its folder reports the size of an open file late.
void MeasureArchive(my::IFileSystem& files, const CArchiveJob& job) {
  try {
    job.counters.SetArchiveBytes(files.FileSize(job.archivePath));
  } catch (const my::CException&) {
    return;  // not created yet, or the destination is disconnected, which the archiver notices itself
  }
}

void RunArchiver(const CArchivePorts& ports, const CArchiveJob& job, const std::wstring& listPath) {
  my::CProcessStart start;
  std::wstring options = ArchiverOptions(job.type, job.password);
  const my::CWipeAtEnd wipeOptions(options);
  const my::CWipeAtEnd wipeArguments(start.arguments);
  start.program = job.archiverPath;
  start.arguments.reserve(options.size() + job.archivePath.size() + listPath.size() + 3);
  // The paths are not quoted, so one with a space reaches the archiver as two arguments.
  start.arguments.append(options).append(L" ").append(job.archivePath).append(L" @").append(listPath);
  start.creationFlags = my::CProcessStart::kNoWindow;
  start.inheritHandles = true;
  // The paths in the list are relative to this folder. "D:" without a separator would be the current folder
  // of the drive.
  start.workingFolder = job.source.ends_with(L':') ? job.source + my::kSeparator : job.source;
  start.whileWaiting = [&] { MeasureArchive(ports.transfer.files, job); };
  const uint32_t exitCode = ports.process.Run(start);
  if (exitCode != 0) throw my::CException(IDS_PROCESS_EXIT_CODE, {std::to_wstring(exitCode)});
}

[[noreturn]] void ThrowIncomplete(const std::wstring& path, uint64_t wanted, uint64_t found) {
  throw my::CException(IDS_ARCHIVE_INCOMPLETE, {std::to_wstring(wanted), std::to_wstring(found), path});
}

// Verifies the archive, because a killed archiver may report success: it must exist and, if it is a zip, have
// as many entries as expected. The archiver chooses the format by the extension.
void CheckArchive(my::IFileSystem& files, const std::wstring& path, uint64_t wanted) {
  const bool exists = files.Kind(path) == my::PathKind::File;
  const bool isZip = HasFittingExtension(DstType::ZIP, path);
  if (exists && !isZip && files.FileSize(path) != 0) return;
  const uint64_t found = exists && isZip ? CountZipEntries(files, path).value_or(0) : 0;
  if (found != wanted || !isZip) ThrowIncomplete(path, wanted, found);
}

// Runs `work`. If it fails, the failure names a path that the archiver has split or misread.
template <class Work>
void ExplainingBlanks(const CArchivePorts& ports, std::initializer_list<std::wstring_view> paths, Work work) {
  try {
    work();
  } catch (my::CException& failure) {
    const auto bad = std::find_if(paths.begin(), paths.end(), IsSplitByArchiver);
    if (bad == paths.end() || failure.Id() == IDS_CREATE_PROCESS_FAILED) throw;
    const my::CMsgArg path = std::wstring(*bad);
    failure.SetWhere(my::MakeText(ports.texts, IDS_ARCHIVE_PATH_HAS_BLANK, {&path, 1}));
    throw;
  }
}

}  // namespace

bool IsSplitByArchiver(std::wstring_view path) {
  return path.find_first_of(L" \t") != path.npos;
}

std::wstring ArchiverOptions(DstType type, const std::wstring& password) {
  switch (type) {
    case DstType::ZIP: return L"a -ssw";
    case DstType::PASSWORD_ZIP: return L"a -ssw -p" + password;
    case DstType::AES_256_ZIP: return L"a -mem=AES256 -ssw -p" + password;
    case DstType::FOLDER: break;
  }
  throw my::CException(IDS_INTERNAL_ERROR, {L"Unknown DstType: " + std::to_wstring(static_cast<int>(type))});
}

void WriteArchive(const CArchivePorts& ports, const CArchiveJob& job) {
  my::IFileSystem& files = ports.transfer.files;
  CNewListFile list = CreateListFile(files);
  // Declared before `file`, so that the file is closed before it is deleted.
  const CAutoDeleteFile deleteList(files, ports.texts, list.path);
  const std::unique_ptr<my::INewFile> file = std::move(list.file);
  const CWrittenList written = WriteList(*file, ports, job.targets);
  file->Close();
  // The archiver opens the files itself. Folders are not held for so long, only checked.
  CheckFolders(files, job.source, job.targets);
  ExplainingBlanks(ports, {job.archivePath, list.path, written.misread}, [&] {
    // The number of entries would not tell: an excluded file may have the name that the archiver reads.
    if (!written.misread.empty()) ThrowIncomplete(job.archivePath, written.count, written.count - 1);
    RunArchiver(ports, job, list.path);
    RetryFresh(ports.transfer, [&] { CheckArchive(files, job.archivePath, written.count); });
  });
  CheckFolders(files, job.source, job.targets);
  job.counters.EndArchive();
  FlushFresh(ports.transfer, job.archivePath, my::FlushDepth::Device);
}

}  // namespace qlm
