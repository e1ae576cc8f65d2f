#pragma once

#include <cstddef>

namespace my {
class IAnsiCodec;
class IClock;
class IFileSystem;
class IMessageTexts;
class IProcess;
class IThreads;
}  // namespace my

namespace qlm {

// The ports of a job; all must outlive it.
struct CEnginePorts {
  my::IFileSystem& files;
  const my::IClock& clock;
  const my::IAnsiCodec& ansi;
  const my::IMessageTexts& texts;
  my::IProcess& process;
  my::IThreads* threads = nullptr;  // of helper threads; null: a job uses only its own thread
  size_t threadCount = 0;           // of threads that a job uses; 0: as many as suit its disks
};

}  // namespace qlm
