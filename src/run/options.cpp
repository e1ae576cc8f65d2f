#include "run/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/version.hpp>
#include <nlohmann/json_fwd.hpp>
#include <sstream>

#include "run/exit_codes.h"
#include "support/build_info.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Version, commit and libraries.
std::string VersionText() {
  std::ostringstream text;
  text << "QuillmoorRun " << my::Utf8FromWide(my::BuildText()) << "\nBoost " << BOOST_VERSION / 100000 << '.'
       << BOOST_VERSION / 100 % 1000 << ", CLI11 " CLI11_VERSION ", JSON " << NLOHMANN_JSON_VERSION_MAJOR
       << '.' << NLOHMANN_JSON_VERSION_MINOR << '.' << NLOHMANN_JSON_VERSION_PATCH;
  return text.str();
}

// Text options in UTF-8, as CLI11 returns them.
struct CRawOptions {
  std::string document;
  std::vector<std::string> tasks;
  std::string archiver;
  std::string settings;
};

// The texts in UTF-8, as CLI11 takes them.
class CUtf8Texts {
 public:
  explicit CUtf8Texts(const my::IMessageTexts& texts) : m_texts(texts) {}
  std::string operator()(uint32_t id, const std::vector<my::CMsgArg>& args = {}) const {
    return my::Utf8FromWide(my::MakeText(m_texts, id, args));
  }

 private:
  const my::IMessageTexts& m_texts;
};

void AddOptions(CLI::App& app, COptions& options, CRawOptions& raw, const CUtf8Texts& text) {
  const std::string group = text(IDS_HELP_OPTIONS);
  app.option_defaults()->group(group);
  app.set_help_flag("-h,--help", text(IDS_OPTION_HELP))->group(group);
  app.set_version_flag("--version", VersionText(), text(IDS_OPTION_VERSION))->group(group);
  app.add_option("DOCUMENT", raw.document, text(IDS_OPTION_DOCUMENT))->option_text(" ");
  app.add_option("--task", raw.tasks, text(IDS_OPTION_TASK))
      ->option_text("ID")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false);  // the next argument may be the document
  CLI::Option* const test = app.add_flag("--test", options.listOnly, text(IDS_OPTION_TEST));
  app.add_flag("--plan", options.plan, text(IDS_OPTION_PLAN))->excludes(test);
  app.add_flag("--json", options.json, text(IDS_OPTION_JSON));
  app.add_flag("--quiet", options.quiet, text(IDS_OPTION_QUIET));
  app.add_option("--7z", raw.archiver, text(IDS_OPTION_7Z))->option_text("PATH");
  app.add_option("--settings", raw.settings, text(IDS_OPTION_SETTINGS))->option_text("FILE");
  app.add_flag("--password-stdin", options.passwordStdin, text(IDS_OPTION_PASSWORD_STDIN));
  app.add_flag("--scheduled", options.scheduled, text(IDS_OPTION_SCHEDULED));
  app.add_flag("--history", options.history, text(IDS_OPTION_HISTORY));
  app.add_flag("--remove-schedules", options.removeSchedules)->group("");  // hidden: for the uninstaller
  app.add_option("--threads", options.threads)->check(CLI::Range(1, 16))->group("");  // hidden: for measuring
}

// Checks what the library would repeat in every line of the help: a run needs a document, and the
// history takes none of the options of a run.
void CheckCombination(const CLI::App& app, const COptions& options) {
  if (options.removeSchedules) return;
  if (!options.history) {
    if (app.count("DOCUMENT") == 0) throw CLI::RequiredError("DOCUMENT");
    return;
  }
  for (const char* name :
       {"--task", "--test", "--plan", "--quiet", "--7z", "--settings", "--password-stdin", "--scheduled"}) {
    if (app.count(name) != 0) throw CLI::ExcludesError("--history", name);
  }
}

// Returns the options that a text of the library names.
std::wstring NamedOptions(const CLI::App& app, const std::string& text) {
  std::wstring names;
  for (const CLI::Option* option : app.get_options()) {
    const std::string name = option->get_name();  // empty if the help does not list the option
    if (name.empty() || text.find(name) == std::string::npos) continue;
    names.append(names.empty() ? L"" : L", ").append(my::WideFromUtf8(name));
  }
  return names;
}

// Returns what is wrong with the options, in the language of the texts.
std::string Explanation(const CLI::App& app, const CLI::Error& error, const CUtf8Texts& text) {
  const std::wstring names = NamedOptions(app, error.what());
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::ExtrasError:
      return text(IDS_OPTIONS_UNEXPECTED, {my::WideFromUtf8(CLI::detail::join(app.remaining(), " "))});
    case CLI::ExitCodes::RequiredError: return text(IDS_OPTIONS_NO_DOCUMENT);
    case CLI::ExitCodes::ExcludesError: return text(IDS_OPTIONS_EXCLUSIVE, {names});
    case CLI::ExitCodes::ArgumentMismatch: return text(IDS_OPTIONS_ONE_VALUE, {names});
    case CLI::ExitCodes::ConversionError: return text(IDS_OPTIONS_NO_VALUE, {names});
    default: return error.what();
  }
}

// Replaces the texts of the library.
void SetTexts(CLI::App& app, const CUtf8Texts& text) {
  app.name("QuillmoorRun");
  app.failure_message([text](const CLI::App* failed, const CLI::Error& error) {
    return text(IDS_HELP_BAD_OPTIONS, {my::WideFromUtf8(Explanation(*failed, error, text))}) + "\n";
  });
  app.footer(text(IDS_HELP_EXIT_CODES));
  app.get_formatter()->label("Usage", text(IDS_HELP_USAGE));
  app.get_formatter()->label("OPTIONS", text(IDS_HELP_OPTIONS));
  app.get_formatter()->label("Positionals", text(IDS_HELP_ARGUMENTS));
  app.get_formatter()->label("Excludes", text(IDS_HELP_EXCLUDES));
  app.get_formatter()->column_width(22);
}

std::vector<std::string> ReversedUtf8(const std::vector<std::wstring>& arguments) {
  std::vector<std::string> reversed;
  reversed.reserve(arguments.size());
  for (const std::wstring& argument : arguments) reversed.push_back(my::Utf8FromWide(argument));
  std::reverse(reversed.begin(), reversed.end());
  return reversed;
}

}  // namespace

CParsedOptions ParseOptions(const std::vector<std::wstring>& arguments, const my::IMessageTexts& texts) {
  CParsedOptions parsed;
  CRawOptions raw;
  const CUtf8Texts text(texts);
  CLI::App app(text(IDS_HELP_PURPOSE));
  AddOptions(app, parsed.options, raw, text);
  SetTexts(app, text);
  try {
    app.parse(ReversedUtf8(arguments));
    CheckCombination(app, parsed.options);
  } catch (const CLI::ParseError& end) {
    std::ostringstream output;
    const int code = app.exit(end, output, output);
    parsed.text = my::WideFromUtf8(output.str());
    parsed.exitCode = code == 0 ? kExitDone : kExitUnusable;
    return parsed;
  }
  parsed.options.documentPath = my::WideFromUtf8(raw.document);
  parsed.options.archiverPath = my::WideFromUtf8(raw.archiver);
  parsed.options.settingsPath = my::WideFromUtf8(raw.settings);
  for (const std::string& id : raw.tasks) parsed.options.taskIds.push_back(my::WideFromUtf8(id));
  return parsed;
}

}  // namespace qlm
