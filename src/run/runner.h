#pragma once

#include "engine/backup_task.h"
#include "run/options.h"

namespace my {
class IConsole;
class IKnownFolders;
class IPower;
class IThreads;
class IXmlDom;
}  // namespace my

namespace qlm {

struct CRunnerPorts {
  CEnginePorts engine;
  my::IXmlDom& dom;
  my::IThreads& threads;
  my::IConsole& console;
  const my::IKnownFolders& folders;
  my::IPower& power;
};

// Runs a document with the given options and returns the exit code (exit_codes.h). If the run cannot start,
// the reason is printed to the error stream.
int RunDocument(const CRunnerPorts& ports, const COptions& options);

}  // namespace qlm
