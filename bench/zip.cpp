#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "bench.h"
#include "document/filter.h"
#include "engine/archive_writer.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "engine/transfer_counters.h"
#include "harness.h"
#include "platform/win32/handle.h"
#include "platform/win32/win32_file_system.h"
#include "ports.h"
#include "support/paths.h"
#include "support/strings.h"
#include "tree.h"

namespace bench {
namespace {

void WriteListFile(my::IFileSystem& files, const qlm::CTargets& targets, const std::wstring& path) {
  ::DeleteFileW(path.c_str());
  std::string lines;
  for (const qlm::CTarget target : targets) {
    if (target.IsCountedFile()) lines += my::Utf8FromWide(target.RelativePath()) + '\n';
  }
  const auto file = files.CreateNewFile(path);
  file->Write(lines);
  file->Close();
}

// Runs the archiver with a bare CreateProcess.
void RunBarely(const std::wstring& archiver, const std::wstring& arguments, const std::wstring& folder) {
  std::wstring line = L"\"" + archiver + L"\" " + arguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION information{};
  if (!::CreateProcessW(archiver.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                        folder.c_str(), &startup, &information)) {
    throw std::runtime_error("the archiver (--7z) does not start");
  }
  const my::CKernelHandle process(information.hProcess);
  const my::CKernelHandle thread(information.hThread);
  DWORD exitCode = 1;
  ::WaitForSingleObject(process.Get(), INFINITE);
  ::GetExitCodeProcess(process.Get(), &exitCode);
  if (exitCode != 0) throw std::runtime_error("the archiver fails");
}

}  // namespace

void MeasureZip(const COptions& options) {
  const CTreeShape shape{.projects = std::max(1, 5 / options.divisor), .bytes = 512};
  const std::wstring tree = EnsureTree(options.root, shape);
  const std::wstring archive = my::JoinPath(options.root, L"bench.zip");
  const std::wstring list = my::JoinPath(options.root, L"bench.txt");
  my::CWin32FileSystem files;
  CPorts ports;
  const auto listed = [&] {
    qlm::CTargets targets;
    qlm::ListSource(files, qlm::CFilter(), nullptr, tree, targets);
    return targets;
  };
  WriteListFile(files, listed(), list);

  const auto timed = [&](const auto& work) {
    ::DeleteFileW(archive.c_str());
    return TimeMs(work);
  };
  const auto engine = [&] {
    const qlm::CTargets targets = listed();
    qlm::CTransferCounters counters(qlm::CountTargets(targets), 0);
    qlm::WriteArchive({{files, ports.clock, nullptr}, ports.process, ports.texts},
                      {options.archiver, L"", tree, targets, archive, qlm::DstType::ZIP, counters});
  };
  const auto bare = [&] { RunBarely(options.archiver, L"a -ssw " + archive + L" @" + list, tree); };
  const CMeasured measured = Measure(
      {"", 0, [&] { return timed(bare); }},
      {{"", 0, [&] { return timed(engine); }}, {"", 0, [&] { return timed(listed); }}}, options.rounds);
  CTimes over;
  for (size_t i = 0; i < measured.baseline.size(); ++i) {
    over.push_back(measured.sides[0][i] - 1.02 * measured.baseline[i] - measured.sides[1][i]);
  }
  std::printf("archiving %llu files\n", static_cast<unsigned long long>(FileCount(shape)));
  PrintFigure("bare archiver", Median(measured.baseline), "ms", 0);
  PrintFigure("listing", Median(measured.sides[1]), "ms", 0);
  PrintFigure("listing and archive", Median(measured.sides[0]), "ms", 0);
  PrintFigure("ratio", MedianRatio(measured.sides[0], measured.baseline), "", 0);
  PrintFigure("a/a", MedianRatio(measured.baselineAgain, measured.baseline), "", 0);
  PrintFigure("beyond 1.02 x bare and the listing", Median(over), "ms", 100);
}

}  // namespace bench
