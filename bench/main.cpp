// qlm_bench: measures the overhead of the engine over the bare system calls.
#include <windows.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "bench.h"
#include "harness.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_message_texts.h"
#include "support/paths.h"
#include "support/strings.h"

namespace bench {
namespace {

using Measurement = void (*)(const COptions&);

const std::map<std::string, Measurement> kMeasurements = {
    {"listing", MeasureListing},          {"copy", MeasureCopy},     {"large-copy", MeasureLargeCopy},
    {"flushed-copy", MeasureFlushedCopy}, {"memory", MeasureMemory}, {"zip", MeasureZip},
    {"unchanged", MeasureUnchanged},      {"tick", MeasureTick},     {"plan", MeasurePlan}};

// Returns the exit code if the program ends now, or -1.
int Parse(std::vector<std::string> arguments, COptions& options, Measurement& measurement) {
  CLI::App app("Measures the engine against bare system calls.", "qlm_bench");
  std::string root, archiver, name;
  app.add_option("MEASUREMENT", name)->required()->transform(CLI::IsMember(kMeasurements));
  app.add_option("--root", root, "Folder for the trees; below the temporary folder unless given");
  app.add_option("--7z", archiver, "7z.exe, needed by zip");
  app.add_option("--rounds", options.rounds, "Times that every side runs")->check(CLI::Range(1, 1000));
  app.add_option("--divisor", options.divisor, "Makes the trees that many times smaller")
      ->check(CLI::Range(1, 100));
  std::reverse(arguments.begin(), arguments.end());  // CLI11 expects the arguments in reverse order
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& failure) {
    return app.exit(failure);
  }
  options.root = my::WideFromUtf8(root);
  options.archiver = my::WideFromUtf8(archiver);
  measurement = kMeasurements.at(name);
  return -1;
}

int Run(int argc, wchar_t** argv) {
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) arguments.push_back(my::Utf8FromWide(argv[i]));
  COptions options;
  Measurement measurement = nullptr;
  const int exitCode = Parse(std::move(arguments), options, measurement);
  if (exitCode >= 0) return exitCode;
  const my::CSimpleErr error = my::TrapError(my::CWin32MessageTexts(), [&] {
    if (options.root.empty())
      options.root = my::JoinPath(my::CWin32FileSystem().TemporaryFolder(), L"qlm_bench");
    measurement(options);
  });
  if (!error) return 0;
  std::fprintf(stderr, "%s\n", my::Utf8FromWide(error.message).c_str());
  return 1;
}

}  // namespace
}  // namespace bench

int wmain(int argc, wchar_t** argv) {
  return bench::Run(argc, argv);
}
