#include "document/document.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>

#include "document/document_file.h"
#include "document/name_pattern.h"
#include "engine/destination_path.h"
#include "platform/xml_layer.h"
#include "support/engine_doubles.h"
#include "support/golden.h"
#include "support/pugi_dom.h"
#include "support/source_folder.h"
#include "support/strings.h"

namespace {

using namespace qlm;
using test::MakeDst;
using test::MakeTask;
using test::Op;
using test::ThrownId;

std::wstring Ids(const CDocument& document) {
  std::wstring ids;
  for (const auto& task : document.Tasks()) ids += task->id + L" ";
  return ids;
}

TEST(Document, first_violated_rule_is_reported) {
  for (const wchar_t c : std::wstring(L"/?:*\"><|")) {
    EXPECT_EQ(ThrownId([c] { CheckId(std::wstring(L"a") + c); }), IDS_ID_BAD_CHARACTER);
  }
  EXPECT_EQ(ThrownId([] { CheckTask({L"a\\b 字", L"p", L"", {}}); }), 0u);
  EXPECT_EQ(ThrownId([] { CheckTask({L"?", L"", L"", {}}); }), IDS_PATH_EMPTY);
  EXPECT_EQ(ThrownId([] { CheckTask({L"", L"p", L"", {}}); }), IDS_ID_EMPTY);
  EXPECT_EQ(ThrownId([] { CheckDst({L"", {}, L""}); }), IDS_PATH_EMPTY);
  EXPECT_EQ(ThrownId([] { CheckDst({L"f", {}, L""}); }), IDS_PATTERN_EMPTY);
}

TEST(Document, merge_renames_a_duplicate_id) {
  CContent content;
  const CDstPtr x = MakeDst(L"x");
  content.dsts.Append(x);
  for (const wchar_t* id : {L"Backup", L"Backup2", L"A"}) content.tasks.Append(MakeTask(id, {x}, L"p"));
  CDocument document(content);
  EXPECT_FALSE(document.Merge(document.Content(), 0)) << "nothing is new";
  EXPECT_FALSE(document.IsModified());
  CContent source;
  for (const wchar_t* folder : {L"y", L"x"}) source.dsts.Append(MakeDst(folder));
  const CTaskDsts both = {source.dsts[1], source.dsts[0]};
  for (const wchar_t* id : {L"Backup", L"A2", L"new", L"A"}) source.tasks.Append(MakeTask(id, both, L"q"));
  source.tasks.Append(MakeTask(L"Backup2", {both[0]}, L"p"));
  EXPECT_TRUE(document.Merge(source, 1));
  EXPECT_EQ(Ids(document), L"Backup Backup3 A2 new A3 Backup2 A ") << "the equal one is skipped";
  EXPECT_EQ(document.Dsts().size(), 2u);
  EXPECT_EQ(document.Tasks()[1]->dsts, (CTaskDsts{x, document.Dsts()[1]})) << "its own objects";
  EXPECT_EQ(source.tasks[0]->id, L"Backup");

  source.dsts.Append(MakeDst(L"z"));
  source.tasks[4]->dsts = {MakeDst(L"nowhere")};
  EXPECT_EQ(ThrownId([&] { document.Merge(source, 0); }), IDS_INTERNAL_ERROR);
  EXPECT_EQ(document.Tasks().size() + document.Dsts().size(), 7u + 2u) << "a failed merge changes nothing";

  EXPECT_TRUE(document.IsModified());
  document.Undo();
  EXPECT_EQ(Ids(document), L"Backup Backup2 A ");
  EXPECT_FALSE(document.IsModified()) << "the content is the saved one again";
  document.SetSaved(L"C:\\f");
  document.Redo();
  EXPECT_EQ(document.Tasks().size(), 7u);
  EXPECT_TRUE(document.IsModified());

  CContent other;
  other.tasks.Append(MakeTask(L"backup"));
  for (const std::ptrdiff_t outside : {-1, 4, 99}) {
    CDocument filled(content);
    EXPECT_TRUE(filled.Merge(other, outside));
    EXPECT_EQ(Ids(filled), L"Backup Backup2 A backup ") << "at the end; case tells IDs apart";
  }
}

TEST(NamePattern, tokens_yield_local_time_and_id) {
  const my::CFileTime time{127'860'158'490'000'000};  // 2006-03-05 07:04:09 UTC
  const std::wstring table[][3] = {
      {L"<ID>_<Y>_<M>_<D>_<h>_<m>", L"Docs", L"Docs_2006_03_05_16_04"},
      {L"<Y2><M1><D1> <Y4><M2><D2>", L"", L"0635 20060305"},
      {L"<h1>.<m1>.<s1> <h2>.<m2>.<s2>,<s>", L"", L"16.4.9 16.04.09,09"},
      {L"<Id><iD><id> <Y3><y><M3>< Y>", L"a\\b", L"a\\ba\\ba\\b <Y3><y><M3>< Y>"},
      {L"<ID>", L"\\$1 $& (?1a:b) ${x} \\n &", L"\\$1 $& (?1a:b) ${x} \\n &"},
      {L"<ID>", L"<Y><id>", L"2006<id>"}};
  test::CFakeClock clock;
  clock.SetOffsetMinutes(9 * 60);
  for (const auto& [pattern, id, name] : table) {
    EXPECT_EQ(ExpandName({L"", DstType::ZIP, pattern}, id, time, clock), name);
  }
  EXPECT_THROW(ExpandName({}, L"a", {uint64_t{1} << 63}, clock), my::CException);
}

// The manual shows these examples; its script is compared with them too.
TEST(NamePattern, examples_of_the_manual_are_true) {
  std::ifstream stream(test::InSourceTree("manual/name-examples.json"));
  const auto examples = nlohmann::json::parse(stream);
  EXPECT_GT(examples.size(), 10u);
  for (const auto& example : examples) {
    const auto field = [&](const char* name) {
      return my::WideFromUtf8(example.at(name).get<std::string>());
    };
    const CDst dst{L"D:", DstType::FOLDER, field("pattern")};
    const auto time = my::ParseUtcText(field("time") + L"Z");
    const std::wstring name = ExpandName(dst, field("id"), time.value(), test::CFakeClock());
    EXPECT_EQ(DestinationPath(dst, name), L"D:\\" + field("name"));
  }
}

TEST(NamePattern, extension_follows_the_type) {
  const std::wstring table[][3] = {{L"a.ZIP", L"a.ZIP", L"a"},     {L"a.tar", L"a.zip", L"a"},
                                   {L"a", L"a.zip", L"a"},         {L"a.b.", L"a.b.zip", L"a.b"},
                                   {L"a.zipp", L"a.zip", L"a"},    {L"x.y\\a", L"x.y\\a.zip", L"x.y\\a"},
                                   {L"x./a", L"x./a.zip", L"x./a"}};
  for (const auto& [text, zip, folder] : table) {
    for (const DstType type : {DstType::FOLDER, DstType::AES_256_ZIP}) {
      const std::wstring& expected = type == DstType::FOLDER ? folder : zip;
      std::wstring name = text;
      EXPECT_EQ(HasFittingExtension(type, text), text == expected);
      EXPECT_EQ(AdjustExtension(type, name), text != expected);
      EXPECT_EQ(name, expected);
    }
  }
}

const std::wstring kPath = L"C:\\d\\doc.qlmr";

class DocumentFile : public testing::Test, protected test::CEngineDoubles {
 protected:
  DocumentFile() { files.AddFile(kPath, "old"); }

  // Loads the bytes and returns the thrown message id; the text must name the file and `named`.
  uint32_t Refusal(const std::string& bytes, const std::wstring& named = L"") {
    files.AddFile(kPath, bytes);
    const my::CSimpleErr error = my::TrapError(texts, [&] { LoadDocument(files, dom, kPath); });
    for (const std::wstring& part : {kPath, named}) {
      if (error) EXPECT_TRUE(test::Has(error.message, part));
    }
    return error.code;
  }

  std::string Saved(const CDocument& document) {
    SaveDocument(files, clock, dom, document, kPath);
    return files.Files().at(kPath);
  }

  test::CPugiDom dom;
};

TEST_F(DocumentFile, invalid_file_is_refused_with_a_fitting_message) {
  // The order of children differs from the order in which they are written.
  const std::string good =
      "<QuillmoorDoc><New><Dst/></New><Tasks><Task><FilterPath/><Id>I</Id><Path>S</Path><Dsts><Dst>0</Dst>"
      "</Dsts></Task></Tasks>\r\n<!-- x --><Version>2.5.0.0</Version><Dsts><Dst><Type>ZIP</Type>"
      "<Pattern>P</Pattern><Folder>F</Folder></Dst></Dsts></QuillmoorDoc>";
  const std::tuple<const char*, const char*, uint32_t, const wchar_t*> table[] = {
      {"^", "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>", 0, L""},
      {"QuillmoorDoc", "Other", IDS_XML_NODE_NOT_FOUND, L"QuillmoorDoc"},
      {"<Dst>0", "<Dst>000000000000", 0, L""},
      {"<Id>I", "<Id>a/b", 0, L""},  // the rules of the editors do not apply to files
      {"<Id>I</Id>", "<Id/>", 0, L""},
      {"<Dst>0", "<Dst>1", IDS_DST_NOT_COMMON, L"\"1\"\n\n/QuillmoorDoc/Tasks/Task[1]/Dsts/Dst[1]\n\n"},
      {"<Dst>0", "<Dst>-1", IDS_XML_BAD_DWORD,
       L"\n\n\"-1\"\n\n/QuillmoorDoc/Tasks/Task[1]/Dsts/Dst[1]\n\nC:"},
      {"<Dst>0", "<Dst> 0", IDS_XML_BAD_DWORD, L""},
      {"<Dsts><Dst>0</Dst></Dsts>", "", IDS_XML_NODE_NOT_FOUND, L"Dsts"},
      {"ZIP", "zip", IDS_UNKNOWN_NAME, L"DstType として不明な名前 zip "},
      {"ZIP", "ZIP\n", IDS_UNKNOWN_NAME, L"\"ZIP\n\"\n\n/QuillmoorDoc/Dsts/Dst[1]/Type"},
      {"2.5.0.0", "2.5.0", IDS_XML_BAD_VERSION, L"2.5.0"},
      {"<Dst><Type>.*</Dst>", "$&$&", IDS_DST_DUPLICATE, L"\"F\"\n\n/QuillmoorDoc/Dsts/Dst[2]/Folder"},
      {"<Task>.*</Task>", "$&$&", IDS_ID_DUPLICATE, L"\"I\"\n\n/QuillmoorDoc/Tasks/Task[2]/Id"},
      {"<Quill", "<!DOCTYPE a [<!ENTITY b 'c'>]><Quill", IDS_XML_LOAD_FAILED, L"DOCTYPE"},
      {"<Id>I", "<Id>\xE2\x82", IDS_XML_LOAD_FAILED, L""}};
  for (const auto& [from, to, id, named] : table) {
    EXPECT_EQ(Refusal(std::regex_replace(good, std::regex(from), to), named), id) << from << " -> " << to;
  }
  for (const char* name :
       {"Version", "Dsts", "Folder", "Type", "Pattern", "Tasks", "Id", "Path", "FilterPath"}) {
    const std::regex tag("(</?)" + std::string(name) + "\\b");
    const uint32_t id = Refusal(std::regex_replace(good, tag, "$1Other"), my::WideFromUtf8(name));
    EXPECT_EQ(id, IDS_XML_NODE_NOT_FOUND) << name;
  }
  for (size_t size = 0; size < good.size(); ++size) {
    EXPECT_EQ(Refusal(good.substr(0, size)), IDS_XML_LOAD_FAILED) << "cut after " << size;
  }
  const std::string huge(my::kLargestXmlFile + 1, ' ');
  EXPECT_EQ(Refusal(huge, texts.Text(IDS_FILE_TOO_LARGE)), IDS_XML_LOAD_FAILED);
  files.FailAt(Op::READ, 1, my::kErrorAccessDenied);
  EXPECT_EQ(Refusal(good, L"0x80070005"), IDS_XML_LOAD_FAILED);
}

TEST_F(DocumentFile, texts_round_trip_and_destinations_stay_shared) {
  CContent content;
  for (const wchar_t* text :
       {L"", L" ", L"\t a \n", L"a\rb\nc\r\nd\n\r", L"<&>\"' ]]> &amp;", L"𠮷é\xFFFD\x7F\x85"}) {
    content.dsts.Append(MakeDst(text, DstType::AES_256_ZIP, text));
    const size_t i = content.tasks.size();
    const CTaskDsts dsts = {content.dsts[0], content.dsts[i]};
    content.tasks.Append(MakeTask(L"t" + std::to_wstring(i), dsts, text, std::wstring(L"f") + text));
  }
  Saved(CDocument(content));
  const CDocument loaded = LoadDocument(files, dom, kPath);
  EXPECT_EQ(loaded.Path(), kPath);
  ASSERT_EQ(loaded.Tasks().size(), 6u);
  for (size_t i = 0; i < loaded.Tasks().size(); ++i) {
    EXPECT_EQ(*loaded.Tasks()[i], *content.tasks[i]) << i;
    EXPECT_EQ(loaded.Tasks()[i]->dsts, (CTaskDsts{loaded.Dsts()[0], loaded.Dsts()[i]})) << "the same objects";
  }
}

TEST_F(DocumentFile, saved_bytes_equal_the_golden_file) {
  const std::string golden = test::Golden("document.qlmr");
  const CDstPtr zip = MakeDst(L"D:\\保存", DstType::ZIP, L"<ID>_<Y>.zip");
  const CDstPtr folder = MakeDst(L"E:\\b & c", DstType::FOLDER, L"<ID>");
  CContent content;
  content.dsts.Append(zip);
  content.dsts.Append(folder);
  content.tasks.Append(MakeTask(L"a", {folder, zip}, L"C:\\書類\\a"));
  content.tasks.Append(MakeTask(L"b", {folder}, L"C:\\書類\\b"));
  EXPECT_EQ(Saved(CDocument(content)), golden);
  EXPECT_EQ(Saved({}), golden.substr(0, golden.find("<Dsts>")) + "<Dsts/><Tasks/></QuillmoorDoc>\n");
}

TEST_F(DocumentFile, document_that_does_not_read_back_is_not_saved) {
  CContent content;
  content.dsts.Append(MakeDst(L"x"));
  content.tasks.Append(MakeTask(L"a", {content.dsts[0]}));
  for (const wchar_t bad : {L'\0', L'\x1F', wchar_t(0xD800), L'\xFFFE'}) {
    content.tasks[0]->path = std::wstring(L"C:\\") + bad;
    EXPECT_EQ(ThrownId([&] { Saved(CDocument(content)); }), IDS_XML_SET_TEXT_FAILED);
  }
  *content.tasks[0] = *MakeTask(L"a", {MakeDst(L"x")});
  EXPECT_EQ(ThrownId([&] { Saved(CDocument(content)); }), IDS_DST_NOT_COMMON)
      << "equal, but not an object in the list";
  *content.tasks[0] = *MakeTask(L"a");
  content.tasks.Append(MakeTask(L"b"));
  content.tasks[1]->id = L"a";
  EXPECT_EQ(ThrownId([&] { Saved(CDocument(content)); }), IDS_ID_DUPLICATE);
  content.tasks[1]->id = L" ";
  dom.losesBlanks = true;
  EXPECT_EQ(ThrownId([&] { Saved(CDocument(content)); }), IDS_XML_SAVE_FAILED);
  EXPECT_EQ(files.Files(), (std::map<std::wstring, std::string>{{kPath, "old"}}));
}

// Saves over an old file next to the leftover of another program; both must survive any failure.
class DocumentFileFaults : public DocumentFile {
 protected:
  void NewDisk() {
    files = {};
    files.AddFile(kPath, "old");
    files.AddFile(L"C:\\d\\_tmp_doc.qlmr", "theirs");
  }

  // Returns whether saving failed. Then the old bytes must be in the file, otherwise the new ones; after a
  // crash either.
  bool SaveFails() {
    constexpr uint32_t kCrash = 1;
    uint32_t failure = kCrash;
    try {
      failure = ThrownId([this] { Saved({}); });
    } catch (const test::CCrash&) {
    }
    EXPECT_TRUE(failure == 0 || failure == kCrash || failure == IDS_XML_SAVE_FAILED) << failure;
    const std::string bytes = files.Files().at(kPath);
    const bool isNew = bytes.starts_with("<?xml") && bytes.ends_with("</QuillmoorDoc>\n");
    EXPECT_TRUE(isNew || bytes == "old") << bytes;
    if (failure != kCrash) EXPECT_EQ(isNew, failure == 0);
    EXPECT_EQ(files.Files().at(L"C:\\d\\_tmp_doc.qlmr"), "theirs");
    return failure != 0;
  }
};

TEST_F(DocumentFileFaults, failed_save_keeps_the_old_file_and_removes_the_temporary_one) {
  for (int kind = 0; kind <= static_cast<int>(Op::CLOSE); ++kind) {
    for (int n = 1; n == 1 || files.Failed(); ++n) {
      SCOPED_TRACE(testing::Message() << "operation " << kind << ", the " << n << ".");
      for (const bool removable : {false, true}) {
        NewDisk();
        if (!removable) files.FailAt(Op::REMOVE, 1);
        files.FailAt(static_cast<Op>(kind), n);
        SaveFails();
        if (removable) EXPECT_EQ(files.Files().size(), 2u);
      }
    }
  }
}

TEST_F(DocumentFileFaults, crash_leaves_the_old_or_the_new_file_complete) {
  int n = 1;
  for (bool crashed = true; crashed; ++n) {
    SCOPED_TRACE(n);
    NewDisk();
    files.CrashAt(n);
    crashed = SaveFails();
    files.ClearFaults();
    EXPECT_FALSE(SaveFails()) << "leftovers of the crash do not matter";
  }
  EXPECT_GT(n, 5) << "to create, write, flush, close and rename";
}

}  // namespace
