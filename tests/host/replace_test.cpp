#include "app/replace_tool.h"

#include "support/engine_doubles.h"
#include "support/fake_windows.h"

namespace {

using namespace qlm;
using test::ThrownId;

constexpr ReplaceCol kEverything = 31;

CReplaceOptions Options(std::wstring src, std::wstring dst, bool regex = false) {
  return {{}, kEverything, std::move(src), std::move(dst), regex, true};
}

struct CReplaceTest : testing::Test {
  CReplaceTest() {
    CContent content;
    for (const wchar_t* folder : {L"D:\\one", L"D:\\two", L"D:\\three"}) {
      content.dsts.Append(test::MakeDst(folder, DstType::ZIP, L"<ID>.zip"));
    }
    const std::wstring path = L"C:\\" + std::wstring(60, L'a') + L"!";
    for (const wchar_t* id : {L"ab", L"ba", L"xyz"}) {
      content.tasks.Append(test::MakeTask(id, {content.dsts[1], content.dsts[0]}, path));
    }
    document.Reset(std::move(content), L"");
    document.AddListener([this](DocChangeEventFlags flags) { told = flags; });
    before = State();
    tool.Show();
  }

  // Returns every value and rule in the document.
  std::wstring State() const {
    std::wstring state;
    const auto add = [&state](const auto& a, const auto& b, bool rule) {
      state += a + L"," + b + (rule ? L"*\n" : L"\n");
    };
    for (const auto& task : document.Tasks()) add(task->id, task->path, task->replaceRule);
    for (const auto& dst : document.Dsts()) add(dst->folder, dst->pattern, dst->replaceRule);
    return state;
  }

  CDocument document;
  CReplaceSetting setting;
  test::CFakeWindow window;
  test::CFakeDialogs dialogs;
  CReplaceTool tool{document, setting, window, dialogs};
  DocChangeEventFlags told{};
  std::wstring before;
};

TEST(ReplaceRule, format_references_are_replaced_and_everything_else_is_literal) {
  struct CCase {
    const wchar_t *src, *dst, *value, *result;
    bool regex;
  };
  const CCase cases[] = {
      {L"ab", L"x", L"ababab", L"xxx", false},
      {L"ab", L"x", L"aabAB", L"axAB", false},
      {L"(\\d+)", L"[$1]", L"v12_3", L"v[12]_[3]", true},
      {L"(b)(c)", L"<$&|$`|$'|$2${1}|$+|$3>", L"abcd", L"a<bc|a|d|cb|c|>d", true},
      {L"(b)(c)", L"$+{$1}$+", L"abcd", L"ac{b}cd", true},
      {L"(b)", L"$12$$1$x${y}$MATCH$", L"abc", L"ab2$1$x${y}$MATCH$c", true},
      {L"^.*$", L"C:\\new\\temp\\Users\\1\\x41\\", L"D:\\", L"C:\\new\\temp\\Users\\1\\x41\\", true},
  };
  for (const CCase& c : cases) {
    const CReplaceRule rule(
        {.col = kReplaceTaskId | kReplaceDstFolder, .src = c.src, .dst = c.dst, .regex = c.regex});
    EXPECT_EQ(rule.Value(kReplaceTaskId, c.value), c.result) << c.src;
    EXPECT_EQ(rule.Value(kReplaceDstPattern, c.value), c.value) << "not a column of the rule";
  }
}

TEST_F(CReplaceTest, preview_changes_affected_rows_only_and_cancel_removes_it) {
  tool.Show();
  EXPECT_EQ(dialogs.replaceFocuses, 1);
  window.tasks.selected = window.dsts.selected = {0, 2};
  window.tasks.focused = window.dsts.focused = 1;
  for (const ReplaceRow row : {ReplaceRow::ALL, ReplaceRow::SELECTED, ReplaceRow::FOCUSED}) {
    CReplaceOptions options = Options(L":", L";");
    options.row = row;
    tool.Refresh(options);
    std::wstring shown;
    for (const auto& task : document.Tasks()) shown += ShownValue(*task, kReplaceTaskPath)[1];
    for (const auto& dst : document.Dsts()) shown += ShownValue(*dst, kReplaceDstFolder)[1];
    const size_t index = static_cast<size_t>(row);
    EXPECT_EQ(shown, (std::vector{L";;;;;;", L";:;;:;", L":;::;:"})[index]);
    EXPECT_EQ(tool.TaskCount() * 10 + tool.DstCount(), (std::vector{33u, 22u, 11u})[index]);
    options.preview = false;
    tool.Refresh(options);
    EXPECT_EQ(State(), before);
  }
  tool.Refresh(Options(L":", L";"));
  tool.Cancel(Options(L"(", L"", true));
  EXPECT_EQ(State(), before);
  EXPECT_FALSE(tool.IsOpen() || document.IsModified() || document.CanUndo());
  EXPECT_EQ(setting.replace.src, L"(");
  EXPECT_EQ(setting.srcs.Items().size() + setting.dsts.Items().size(), 2u);
}

TEST_F(CReplaceTest, commit_is_one_undo_step_and_detaches_the_rule) {
  tool.Commit(Options(L"D:\\", L""));
  EXPECT_EQ(document.Dsts()[0]->folder, L"one");
  for (const auto& task : document.Tasks()) {
    EXPECT_EQ(task->dsts, (CTaskDsts{document.Dsts()[1], document.Dsts()[0]})) << "the same objects";
  }
  EXPECT_EQ(told, DocChangeEventFlags::CHNAGE_DSTS);
  EXPECT_EQ(setting.srcs.Items().front(), L"D:\\");
  EXPECT_FALSE(test::Has(State(), L"*"));
  document.Undo();
  EXPECT_EQ(State(), before);
  EXPECT_FALSE(tool.IsOpen() || document.CanUndo());

  for (const CReplaceOptions& nothing : {Options(L"a", L"a"), Options(L"", L"x", true)}) {
    tool.Show();
    tool.Commit(nothing);
    EXPECT_FALSE(tool.IsOpen() || document.IsModified());
  }
}

TEST_F(CReplaceTest, failed_commit_changes_nothing_and_leaves_the_tool_open) {
  struct CCase {
    const wchar_t *src, *dst;
    ReplaceCol col;
    uint32_t id;
    bool regex = true;
  };
  const CCase cases[] = {
      {L"^..$", L"n", kReplaceTaskId, IDS_ID_DUPLICATE},
      {L"^ba$", L"", kReplaceTaskId, IDS_ID_EMPTY},
      {L"y", L"?", kEverything, IDS_ID_BAD_CHARACTER, false},
      {L"^.*$", L"", kEverything, IDS_PATH_EMPTY},
      {L"<ID>.zip", L"", kReplaceDstPattern, IDS_PATTERN_EMPTY, false},
      {L"two", L"one", kReplaceDstFolder, IDS_DST_DUPLICATE, false},
      {L"(", L"x", kEverything, IDS_REGEX_ERROR},
      {L"(a+)+$", L"x", kEverything, IDS_REGEX_TOO_COMPLEX},
  };
  for (const CCase& c : cases) {
    const CReplaceOptions options{ReplaceRow::ALL, c.col, c.src, c.dst, c.regex, true};
    tool.Refresh(options);
    const std::wstring preview = State();
    EXPECT_EQ(preview == before, tool.Error().has_value());
    EXPECT_EQ(ThrownId([&] { tool.Commit(options); }), c.id) << c.src;
    EXPECT_EQ(State(), preview) << c.src;
    EXPECT_TRUE(tool.IsOpen() && !document.CanUndo());
  }
  tool.Cancel(tool.Options());
  EXPECT_EQ(State(), before);
}

}  // namespace
