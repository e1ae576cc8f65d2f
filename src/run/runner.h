#pragma once

#include <string>

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

struct CRunOutcome {
  int exitCode;               // exit_codes.h
  std::wstring failure = {};  // why the run could not start, also printed to the error stream; or empty
  bool lacksFolders = false;  // backups were created without folders that could not be read
};

// Runs a document with the given options.
CRunOutcome RunDocument(const CRunnerPorts& ports, const COptions& options);

}  // namespace qlm
