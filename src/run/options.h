#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/message_texts.h"

namespace qlm {

// The options of the console runner.
struct COptions {
  std::wstring documentPath;
  std::vector<std::wstring> taskIds;  // empty: all tasks
  bool listOnly = false;
  bool history = false;          // prints the history instead of running; of one document if there is a path
  bool removeSchedules = false;  // for the uninstaller: removes those of this installation instead of running
  bool plan = false;
  bool json = false;
  bool quiet = false;
  bool scheduled = false;      // started by the Task Scheduler: without console, a failure is notified
  std::wstring archiverPath;   // empty: the path in the settings
  std::wstring settingsPath;   // empty: the settings file of the user
  size_t threads = 0;          // that a job uses; 0: as many as suit its disks
  bool passwordStdin = false;  // reads the zip password from the first line of standard input
};

// The result of parsing: options, or a text to print and the exit code.
struct CParsedOptions {
  COptions options;
  std::wstring text;  // help, version, or the error
  int exitCode = -1;  // -1: run with the options
};

// `arguments` do not include the path of the program. The texts are those of the help.
CParsedOptions ParseOptions(const std::vector<std::wstring>& arguments, const my::IMessageTexts& texts);

}  // namespace qlm
