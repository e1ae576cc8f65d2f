#include "document/document.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include "document/name_pattern.h"
#include "resource.h"
#include "support/fake_ports.h"
#include "support/thrown.h"

namespace {

using qlm::CDst;
using qlm::CTask;
using qlm::DstType;
using test::ThrownId;

boost::shared_ptr<CDst> Dst(const std::wstring& folder) {
  return boost::make_shared<CDst>(CDst{folder});
}

boost::shared_ptr<CTask> Task(const std::wstring& id, const std::wstring& path, qlm::CTaskDsts dsts = {}) {
  return boost::make_shared<CTask>(CTask{id, path, L"", std::move(dsts)});
}

std::wstring Ids(const qlm::CDocument& document) {
  std::wstring ids;
  for (const auto& task : document.Tasks()) ids += task->id + L" ";
  return ids;
}

TEST(DocumentRules, first_broken_rule_is_told) {
  EXPECT_EQ(ThrownId([] { qlm::CheckId(L""); }), IDS_ID_EMPTY);
  for (const wchar_t c : std::wstring(L"/?:*\"><|")) {
    EXPECT_EQ(ThrownId([c] { qlm::CheckId(std::wstring(L"a") + c); }), IDS_ID_BAD_CHARACTER);
  }
  EXPECT_EQ(ThrownId([] { qlm::CheckTask({L"a\\b 字", L"p", L"", {}}); }), 0u);
  EXPECT_EQ(ThrownId([] { qlm::CheckTask({L"?", L"", L"", {}}); }), IDS_PATH_EMPTY);
  EXPECT_EQ(ThrownId([] { qlm::CheckTask({L"", L"p", L"", {}}); }), IDS_ID_EMPTY);
  EXPECT_EQ(ThrownId([] { qlm::CheckDst({L"", {}, L""}); }), IDS_PATH_EMPTY);
  EXPECT_EQ(ThrownId([] { qlm::CheckDst({L"f", {}, L""}); }), IDS_PATTERN_EMPTY);
}

TEST(Document, insertion_keeps_order_and_refuses_what_is_there) {
  qlm::CDocument document;
  document.Tasks().Insert(5, Task(L"b", L""));
  document.Tasks().Insert(-1, Task(L"B", L""));
  document.Tasks().Insert(0, Task(L"a", L""));
  document.Tasks().Insert(1, Task(L"c", L""));
  document.Tasks().Insert(4, Task(L"d", L""));
  EXPECT_EQ(ThrownId([&] { document.Tasks().Insert(0, Task(L"B", L"other")); }), IDS_ID_DUPLICATE);
  EXPECT_EQ(ThrownId([&] { document.Tasks().Insert(0, Task(L"|", L"")); }), IDS_ID_BAD_CHARACTER);
  EXPECT_EQ(Ids(document), L"a c b B d ");
  document.Dsts().Insert(-1, Dst(L"x"));
  EXPECT_EQ(ThrownId([&] { document.Dsts().Insert(0, Dst(L"x")); }), IDS_DST_DUPLICATE);
  document.Dsts().Insert(0, Dst(L"X"));
  EXPECT_EQ(document.Dsts().size(), 2u);
  EXPECT_EQ(document.Dsts().IndexOf(Dst(L"x")), -1) << "an equal one is not the same";
  const auto* noRule = document.Dsts()[0]->replaceRule;
  document.Dsts()[0]->replaceRule = reinterpret_cast<const qlm::CReplaceRule*>(&document);
  EXPECT_FALSE(document.Dsts().FindEqual(*Dst(L"X"))) << "the rule takes part in equality";
  document.Dsts()[0]->replaceRule = noRule;
}

TEST(Document, merge_renames_clashing_id) {
  qlm::CDocument document;
  document.Dsts().Insert(-1, Dst(L"x"));
  for (const wchar_t* id : {L"Backup", L"Backup2", L"A"}) {
    document.Tasks().Insert(-1, Task(id, L"p", {document.Dsts()[0]}));
  }
  EXPECT_FALSE(document.Merge(qlm::CDocument(document), 0));
  qlm::CDocument source;
  source.Dsts().Insert(-1, Dst(L"y"));
  source.Dsts().Insert(-1, Dst(L"x"));
  for (const wchar_t* id : {L"Backup", L"A2", L"new", L"A"}) {
    source.Tasks().Insert(-1, Task(id, L"other", {source.Dsts()[1], source.Dsts()[0]}));
  }
  source.Tasks().Insert(-1, Task(L"Backup2", L"p", {source.Dsts()[1]}));
  EXPECT_TRUE(document.Merge(source, 1));
  EXPECT_EQ(Ids(document), L"Backup Backup3 A2 new A3 Backup2 A ") << "the equal one is skipped";
  EXPECT_EQ(document.Dsts().size(), 2u);
  EXPECT_EQ(document.Tasks()[1]->dsts, (qlm::CTaskDsts{document.Dsts()[0], document.Dsts()[1]}));
  EXPECT_EQ(source.Tasks()[0]->id, L"Backup") << "the source stays as it is";

  source.Tasks()[4]->dsts = {Dst(L"nowhere")};
  source.Dsts().Insert(-1, Dst(L"z"));
  source.Tasks().Insert(0, Task(L"first", L"p"));
  EXPECT_EQ(ThrownId([&] { document.Merge(source, 0); }), IDS_INTERNAL_ERROR);
  EXPECT_EQ(document.Tasks().size() + document.Dsts().size(), 7u + 2u) << "nothing of a failed merge stays";
}

TEST(NamePattern, tokens_yield_local_time_and_id) {
  const my::CFileTime time{131'016'350'490'000'000};  // 2016-03-05 07:04:09 UTC
  const std::wstring table[][3] = {
      {L"<ID>_<Y>_<M>_<D>_<h>_<m>", L"Docs", L"Docs_2016_03_05_16_04"},
      {L"<Y2><M1><D1> <Y4><M2><D2>", L"", L"1635 20160305"},
      {L"<h1>.<m1>.<s1> <h2>.<m2>.<s2> <h><m><s>", L"", L"16.4.9 16.04.09 160409"},
      {L"<Id><iD><id> <Y3><y><M3>< Y><DD>", L"a", L"aaa <Y3><y><M3>< Y><DD>"},
      {L"<ID>\\<ID>", L"a\\b", L"a\\b\\a\\b"},
      {L"<ID>", L"\\$1 $& $0 (?1a:b) ${x} \\n &", L"\\$1 $& $0 (?1a:b) ${x} \\n &"},
      {L"<ID>", L"<Y><id>", L"2016<id>"}};
  test::CFakeClock clock;
  clock.SetOffsetMinutes(9 * 60);
  for (const auto& [pattern, id, name] : table) {
    EXPECT_EQ(qlm::ExpandName({L"", DstType::ZIP, pattern}, id, time, clock), name);
  }
  EXPECT_THROW(qlm::ExpandName({}, L"a", {uint64_t{1} << 63}, clock), my::CException);
}

TEST(NamePattern, extension_follows_the_type) {
  const std::wstring table[][3] = {{L"backup.ZIP", L"backup.ZIP", L"backup"},
                                   {L"backup.tar", L"backup.zip", L"backup"},
                                   {L"backup", L"backup.zip", L"backup"},
                                   {L"a.b.", L"a.b.zip", L"a.b"},
                                   {L"dir.x\\name", L"dir.x\\name.zip", L"dir.x\\name"},
                                   {L"dir.x/name", L"dir.x/name.zip", L"dir.x/name"},
                                   {L"a.zipp", L"a.zip", L"a"}};
  for (const auto& [text, zip, folder] : table) {
    for (const DstType type : {DstType::FOLDER, DstType::ZIP, DstType::PASSWORD_ZIP, DstType::AES_256_ZIP}) {
      const std::wstring& expected = type == DstType::FOLDER ? folder : zip;
      std::wstring name = text;
      EXPECT_EQ(qlm::HasFittingExtension(type, text), text == expected);
      EXPECT_EQ(qlm::AdjustExtension(type, name), text != expected);
      EXPECT_EQ(name, expected);
    }
  }
}

}  // namespace
