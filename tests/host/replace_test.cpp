#include "app/replace_tool.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include "app/windows.h"
#include "document/document.h"
#include "resource.h"
#include "settings/settings.h"
#include "support/thrown.h"

namespace {

using namespace qlm;
using test::ThrownId;

constexpr ReplaceCol kEverything = 31;

struct CList : IListState {
  std::optional<size_t> FocusedRow() const override { return 1; }
  std::vector<size_t> SelectedRows() const override { return {0, 2}; }
  void Focus() override {}
};

struct CWindows : IMainWindow, IDialogs {
  IListState& TaskList() override { return list; }
  IListState& DstList() override { return list; }
  void RedrawLists() override {}
  void ApplySettings(const CSettings&) override {}
  void StoreSettings(CSettings&) override {}
  void UpdateTitle() override {}
  void PostClose() override {}
  void StartTimer(uint32_t) override {}
  void StopTimer() override {}
  void ClearResults() override {}
  void ShowResults(size_t, const CResults&) override {}
  void ShowRunStatus() override {}
  void ShowRunState() override {}
  std::optional<std::wstring> AskOpenPath(const CFileQuestion&) override { return {}; }
  std::optional<std::wstring> AskSavePath(const CFileQuestion&) override { return {}; }
  bool AskPassword(CPasswordEntry&) override { return false; }
  void ShowSettings(bool) override {}
  void OpenReplace(CReplaceTool&) override { ++opened; }
  void FocusReplace() override { ++focused; }
  void CancelReplace() override {}

  CList list;
  int opened = 0;
  int focused = 0;
};

CReplaceOptions Options(std::wstring src, std::wstring dst, bool regex = false) {
  return {ReplaceRow::ALL, kEverything, std::move(src), std::move(dst), regex, true};
}

struct CReplaceTest : testing::Test {
  CReplaceTest() {
    CContent content;
    for (const wchar_t* folder : {L"D:\\one", L"D:\\two", L"D:\\three"}) {
      content.dsts.Insert(-1, boost::make_shared<CDst>(CDst{folder, DstType::ZIP, L"<ID>.zip"}));
    }
    for (const wchar_t* id : {L"a", L"b", L"xyz"}) {
      content.tasks.Insert(-1, boost::make_shared<CTask>(CTask{
                                   id, std::wstring(L"C:\\") + id, L"", {content.dsts[1], content.dsts[0]}}));
    }
    document.Reset(std::move(content), L"");
    document.AddListener([this](DocChangeEventFlags flags) { told = flags; });
    tool.Show();
  }

  // Every value of the document and every rule in it.
  std::wstring State() const {
    std::wstring state;
    for (const auto& task : document.Tasks()) {
      state += task->id + L"," + task->path + L"," + task->filterPath + (task->replaceRule ? L"*" : L"");
      for (const auto& dst : task->dsts) state += L" " + dst->folder + L"," + dst->pattern;
      state += L"\n";
    }
    for (const auto& dst : document.Dsts()) {
      state += dst->folder + L"," + dst->pattern + (dst->replaceRule ? L"*\n" : L"\n");
    }
    return state;
  }

  uint32_t CommitThrows(CReplaceOptions options) {
    return ThrownId([&] { tool.Commit(std::move(options)); });
  }

  CDocument document;
  CReplaceSetting setting;
  CWindows windows;
  CReplaceTool tool{document, setting, windows, windows};
  DocChangeEventFlags told{};
};

TEST(ReplaceRule, value_after_replacement) {
  struct CCase {
    const wchar_t *src, *dst, *value, *result;
    bool regex;
  };
  const CCase cases[] = {
      {L"ab", L"x", L"ababab", L"xxx", false},
      {L"ab", L"x", L"aabAB", L"axAB", false},
      {L"aa", L"a", L"aaaaa", L"aaa", false},
      {L".", L"$&\\", L"a.b", L"a$&\\b", false},
      {L"", L"x", L"ab", L"ab", false},
      {L"(\\d+)", L"[$1]", L"v12_3", L"v[12]_[3]", true},
      {L"(b)(c)", L"<$&|$`|$'|$2${1}|$+|$3>", L"abcd", L"a<bc|a|d|cb|c|>d", true},
      {L"(b)", L"$12$$1$x${y}$MATCH$", L"abc", L"ab2$1$x${y}$MATCH$c", true},
      {L"^.*$", L"C:\\new\\temp\\Users\\1\\x41\\", L"D:\\", L"C:\\new\\temp\\Users\\1\\x41\\", true},
      {L"\\\\t", L"\\$&", L"C:\\tmp", L"C:\\\\tmp", true},
  };
  for (const CCase& c : cases) {
    const CReplaceRule rule(
        {.col = kReplaceTaskId | kReplaceDstFolder, .src = c.src, .dst = c.dst, .regex = c.regex});
    EXPECT_EQ(rule.Value(kReplaceTaskId, c.value), c.result) << c.src;
    EXPECT_EQ(rule.Value(kReplaceDstPattern, c.value), c.value) << "not a column of the rule";
  }
}

TEST_F(CReplaceTest, preview_shows_affected_rows_only_and_cancel_leaves_no_trace) {
  tool.Show();
  EXPECT_EQ(windows.opened, 1);
  EXPECT_EQ(windows.focused, 1);
  tool.Cancel(tool.Options());
  const std::wstring before = State();
  tool.Show();
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

TEST_F(CReplaceTest, commit_is_one_step_whatever_preview_says) {
  tool.Cancel(tool.Options());
  const std::wstring before = State();
  tool.Show();
  CReplaceOptions options = Options(L"D:\\", L"");
  options.preview = false;
  tool.Commit(options);
  EXPECT_EQ(document.Dsts()[0]->folder, L"one");
  for (const auto& task : document.Tasks()) {
    EXPECT_EQ(task->dsts, (CTaskDsts{document.Dsts()[1], document.Dsts()[0]})) << "the very objects";
  }
  EXPECT_EQ(told, DocChangeEventFlags::CHNAGE_DSTS);
  EXPECT_EQ(setting.srcs.Items().front(), L"D:\\");
  EXPECT_FALSE(tool.IsOpen());
  document.Undo();
  EXPECT_EQ(State(), before) << "and no rule is left in the step";
  EXPECT_FALSE(document.CanUndo());

  tool.Show();
  tool.Commit(Options(L"a", L"a"));
  EXPECT_FALSE(tool.IsOpen() || document.IsModified());
}

TEST_F(CReplaceTest, ids_may_be_exchanged) {
  // With no conditionals in formats, "a" and "b" change places by way of the text behind them.
  CReplaceOptions options = Options(L"^(?:a|b)$", L"b", true);
  options.col = kReplaceTaskId;
  EXPECT_EQ(CommitThrows(options), IDS_ID_DUPLICATE);
}

TEST_F(CReplaceTest, broken_rule_changes_nothing) {}

}  // namespace
