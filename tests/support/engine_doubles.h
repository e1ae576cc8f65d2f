// Doubles of the ports of jobs, and what jobs work on.
#pragma once

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include "engine/backup_task.h"
#include "support/checks.h"
#include "support/fake_archiver.h"
#include "support/fake_ports.h"
#include "support/memory_file_system.h"
#include "support/names.h"

namespace test {

inline constexpr my::CFileTime kTime{131'016'350'490'000'000};  // 2016-03-05 07:04:09 UTC, that of CFakeClock

inline constexpr uint64_t kDay = uint64_t{24} * 60 * 60 * 10'000'000;  // ticks

inline qlm::CTaskPtr MakeTask(const std::wstring& id, qlm::CTaskDsts dsts = {},
                              const std::wstring& path = L"C:\\src", const std::wstring& filter = L"") {
  return boost::make_shared<qlm::CTask>(qlm::CTask{id, path, filter, std::move(dsts)});
}

inline qlm::CDstPtr MakeDst(const std::wstring& folder, qlm::DstType type = qlm::DstType::FOLDER,
                            const std::wstring& pattern = L"<ID>_<Y><M><D><h><m><s>") {
  return boost::make_shared<qlm::CDst>(qlm::CDst{folder, type, pattern});
}

struct CEngineDoubles {
  // Returns the job of a task with this number of threads.
  boost::shared_ptr<qlm::CBackupTask> MakeJob(const qlm::CTask& task, size_t threadCount = 0) {
    const qlm::CEnginePorts with{files, clock, ansi, texts, process, &helpers, threadCount};
    return boost::make_shared<qlm::CBackupTask>(with, qlm::CBackupJob{task, L"C:\\7z.exe", L"pw"});
  }

  // Returns the rows of a job that has run.
  qlm::CResults RunJob(const qlm::CTask& task, size_t threadCount) {
    const auto job = MakeJob(task, threadCount);
    job->Run();
    return job->Results();
  }

  CMemoryFileSystem files;
  CFakeClock clock;
  CFakeAnsiCodec ansi;
  CRcTexts texts;
  CFakeProcess process;
  CStdThreads helpers;
  const qlm::CEnginePorts ports{files, clock, ansi, texts, process};
};

}  // namespace test
