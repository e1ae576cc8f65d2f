#pragma once

#include <string>
#include <vector>

namespace qlm {

// What the command line of the console runner asks for.
struct COptions {
  std::wstring documentPath;
  std::vector<std::wstring> taskIds;  // empty: all tasks
  bool listOnly = false;
  bool json = false;
  bool quiet = false;
  std::wstring archiverPath;   // empty: from the settings
  std::wstring settingsPath;   // empty: the current user's file
  bool passwordStdin = false;  // the zip password is the first line of standard input
};

// A command line that was read: either options, or a text to print and the exit code to end with.
struct CParsedOptions {
  COptions options;
  std::wstring text;  // help, version, or what is wrong
  int exitCode = -1;  // -1: go on with the options
};

// `arguments` without the program's own path.
CParsedOptions ParseOptions(const std::vector<std::wstring>& arguments);

}  // namespace qlm
