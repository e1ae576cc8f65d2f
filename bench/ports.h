#pragma once

#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <string>

#include "engine/backup_task.h"
#include "platform/kept_threads.h"
#include "platform/win32/win32_ansi_codec.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_process.h"
#include "platform/win32/win32_threads.h"

namespace bench {

// The ports that jobs need besides a file system.
struct CPorts {
  my::CWin32Clock clock;
  my::CWin32AnsiCodec ansi;
  my::CWin32MessageTexts texts;
  my::CWin32Process process;
  my::CWin32Threads threads;
  my::CKeptThreads helpers{threads};

  // Returns the ports of jobs that use this number of threads.
  qlm::CEnginePorts With(my::IFileSystem& files, size_t threadCount = 1) {
    return {files, clock, ansi, texts, process, &helpers, threadCount};
  }
};

// Creates a job that backs up `source` to `count` folder destinations.
inline qlm::CBackupTaskPtr MakeJob(const qlm::CEnginePorts& ports, std::wstring id, std::wstring source,
                                   const std::wstring& destination, size_t count) {
  qlm::CTask task;
  task.id = std::move(id);
  task.path = std::move(source);
  for (size_t i = 0; i < count; ++i) {
    task.dsts.push_back(boost::make_shared<qlm::CDst>());
    task.dsts.back()->folder = destination;
  }
  return boost::make_shared<qlm::CBackupTask>(ports, qlm::CBackupJob{task});
}

}  // namespace bench
