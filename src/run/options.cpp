#include "run/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/version.hpp>
#include <nlohmann/json_fwd.hpp>
#include <sstream>
#include <string_view>

#include "run/exit_codes.h"
#include "support/strings.h"

namespace qlm {
namespace {

// Version, commit and libraries. The commit is empty in builds outside a repository.
std::string VersionText() {
  constexpr std::string_view kCommit = QLM_COMMIT;
  std::ostringstream text;
  text << "QuillmoorRun " QLM_VERSION;
  if (!kCommit.empty()) text << " (" << kCommit << ")";
  text << "\nBoost " << BOOST_VERSION / 100000 << '.' << BOOST_VERSION / 100 % 1000
       << ", CLI11 " CLI11_VERSION ", JSON " << NLOHMANN_JSON_VERSION_MAJOR << '.'
       << NLOHMANN_JSON_VERSION_MINOR << '.' << NLOHMANN_JSON_VERSION_PATCH;
  return text.str();
}

// Text options in UTF-8, as CLI11 returns them.
struct CRawOptions {
  std::string document;
  std::vector<std::string> tasks;
  std::string archiver;
  std::string settings;
};

void AddOptions(CLI::App& app, COptions& options, CRawOptions& raw) {
  app.option_defaults()->group("オプション");
  app.set_help_flag("-h,--help", "この説明を表示します")->group("オプション");
  app.set_version_flag("--version", VersionText(), "バージョンを表示します")->group("オプション");
  app.add_option("DOCUMENT", raw.document, "バックアップ文書 (.qlmr)")->option_text(" ");
  app.add_option("--task", raw.tasks, "この ID のタスクだけを実行します（繰り返し指定できます）")
      ->option_text("ID")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false);  // the next argument may be the document
  CLI::Option* const test =
      app.add_flag("--test", options.listOnly, "一覧と転送先パスの計算だけを行い、何も作成しません");
  app.add_flag("--plan", options.plan, "実行すると何が起きるかと助言を表示し、何も作成しません")
      ->excludes(test);
  app.add_flag("--json", options.json, "結果を 1 行 1 個の JSON オブジェクトで出力します (UTF-8)");
  app.add_flag("--quiet", options.quiet, "エラーになった結果だけを表示します");
  app.add_option("--7z", raw.archiver, "7z.exe の場所（省略時は設定ファイルの値）")->option_text("PATH");
  app.add_option("--settings", raw.settings, "使用する設定ファイル（省略時はユーザーの設定）")
      ->option_text("FILE");
  app.add_flag("--password-stdin", options.passwordStdin,
               "zip パスワードを標準入力の 1 行目から読み込みます");
  app.add_flag("--history", options.history,
               "実行の履歴とタスクの最終成功を表示します（文書は省略できます）");
}

// Checks what the library would explain in English in every line of the help: a run needs a document, and the
// history takes none of the options of a run.
void CheckCombination(const CLI::App& app, const COptions& options) {
  if (!options.history) {
    if (app.count("DOCUMENT") == 0) throw CLI::RequiredError("DOCUMENT");
    return;
  }
  for (const char* name :
       {"--task", "--test", "--plan", "--quiet", "--7z", "--settings", "--password-stdin"}) {
    if (app.count(name) != 0) throw CLI::ExcludesError("--history", name);
  }
}

// Replaces the English texts of the library.
void SetTexts(CLI::App& app) {
  app.name("QuillmoorRun");
  app.failure_message([](const CLI::App*, const CLI::Error& error) {
    return std::string("コマンドラインの指定が正しくありません - ") + error.what() +
           "\n使い方は QuillmoorRun --help で表示されます\n";
  });
  app.footer(
      "終了コード:\n"
      "  0  すべて作成、またはスキップ\n"
      "  1  エラーになった（--plan では、なる）結果がある\n"
      "  2  指定の誤り、文書が読めない、または実行するものがない\n"
      "  3  中断された (Ctrl+C)");
  app.get_formatter()->label("Usage", "使い方");
  app.get_formatter()->label("OPTIONS", "オプション");
  app.get_formatter()->label("Positionals", "引数");
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

CParsedOptions ParseOptions(const std::vector<std::wstring>& arguments) {
  CParsedOptions parsed;
  CRawOptions raw;
  CLI::App app("Quillmoor のバックアップ文書を実行します");
  AddOptions(app, parsed.options, raw);
  SetTexts(app);
  try {
    app.parse(ReversedUtf8(arguments));
    CheckCombination(app, parsed.options);
  } catch (const CLI::ParseError& end) {
    std::ostringstream text;
    const int code = app.exit(end, text, text);
    parsed.text = my::WideFromUtf8(text.str());
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
