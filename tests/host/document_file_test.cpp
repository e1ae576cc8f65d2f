#include "document/document_file.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <fstream>
#include <regex>

#include "document/document.h"
#include "platform/xml_layer.h"
#include "resource.h"
#include "support/fake_ports.h"
#include "support/memory_file_system.h"
#include "support/pugi_dom.h"
#include "support/strings.h"
#include "support/thrown.h"

namespace {

using test::Op;

const std::wstring kPath = L"C:\\d\\doc.qlmr";
const std::string kGood =
    "<QuillmoorDoc><Version>2.5.0.0</Version><Dsts><Dst><Folder>F</Folder><Type>ZIP</Type><Pattern>P</"
    "Pattern></Dst></Dsts><Tasks>"
    "<Task><Id>I</Id><Path>S</Path><Dsts><Dst>0</Dst></Dsts><FilterPath/></Task></Tasks></QuillmoorDoc>";

class DocumentFile : public testing::Test {
 protected:
  DocumentFile() { files.AddFolder(L"C:\\d"); }

  // Loads the bytes and answers the id of what is thrown, 0 for none; its text must name the file, and
  // `named`.
  uint32_t Refusal(const std::string& bytes, const std::wstring& named = L"") {
    files.AddFile(kPath, bytes);
    try {
      qlm::LoadDocument(files, dom, kPath);
      return 0;
    } catch (const my::CException& failure) {
      const std::wstring text = my::MakeErrorText(texts, failure);
      EXPECT_NE(text.find(kPath), std::wstring::npos) << my::Utf8FromWide(text);
      EXPECT_NE(text.find(named), std::wstring::npos) << my::Utf8FromWide(text);
      return failure.Id();
    }
  }

  void Save(const qlm::CDocument& document) { qlm::SaveDocument(files, dom, document, kPath); }

  // Two tasks that share destinations, with these texts in every place.
  static qlm::CDocument Document(const std::vector<std::wstring>& strings) {
    qlm::CDocument document;
    for (const std::wstring& text : strings) {
      document.Dsts().Insert(-1,
                             boost::make_shared<qlm::CDst>(qlm::CDst{text, qlm::DstType::AES_256_ZIP, text}));
      const std::wstring id = L"t" + std::to_wstring(document.Tasks().size());
      document.Tasks().Insert(
          -1, boost::make_shared<qlm::CTask>(qlm::CTask{id, text, text, {document.Dsts()[0]}}));
    }
    return document;
  }

  test::CMemoryFileSystem files;
  test::CPugiDom dom;
  test::CRcTexts texts;
};

TEST_F(DocumentFile, bad_file_is_refused_with_its_message) {
  struct {
    const char* from;
    const char* to;
    uint32_t id;
    const wchar_t* named;
  } const table[] = {
      {"QuillmoorDoc", "Other", IDS_XML_NODE_NOT_FOUND, L"QuillmoorDoc"},
      {"<Dst>0</Dst>", "<Dst>1</Dst>", IDS_DST_NOT_COMMON, L""},
      {"<Dst>0</Dst>", "<Dst>-1</Dst>", IDS_XML_BAD_DWORD, L"/QuillmoorDoc/Tasks/Task[1]/Dsts/Dst[1]"},
      {"<Dst>0</Dst>", "<Dst> 0</Dst>", IDS_XML_BAD_DWORD, L" 0"},
      {"<Dst>0</Dst>", "<Dst/>", IDS_XML_BAD_DWORD, L""},
      {"<Dsts><Dst>0</Dst></Dsts>", "", IDS_XML_NODE_NOT_FOUND, L"Dsts"},
      {"ZIP", "zip", IDS_UNKNOWN_NAME, L"DstType"},
      {"ZIP", "", IDS_UNKNOWN_NAME, L"DstType"},
      {"2.5.0.0", "2.5.0", IDS_XML_BAD_VERSION, L"2.5.0"},
      {"<Dst><Folder>", "<Dst><Folder>F</Folder><Type>ZIP</Type><Pattern>P</Pattern></Dst><Dst><Folder>",
       IDS_DST_DUPLICATE, L""},
      {"</Task>", "</Task><Task><Id>I</Id><Path/><Dsts/><FilterPath/></Task>", IDS_ID_DUPLICATE, L""},
      {"<Id>I</Id>", "<Id/>", IDS_ID_EMPTY, L""},
      {"<Quill", "<!DOCTYPE a [<!ENTITY b 'c'>]><Quill", IDS_XML_LOAD_FAILED, L"DOCTYPE"},
      {"<Id>I", "<Id>&b;", IDS_XML_LOAD_FAILED, L""},
      {"<Id>I", "<Id>\xE2\x82", IDS_XML_LOAD_FAILED, L""},
      {"</QuillmoorDoc>", "</QuillmoorDoc><a/>", IDS_XML_LOAD_FAILED, L""}};
  for (const auto& [from, to, id, named] : table) {
    EXPECT_EQ(Refusal(std::regex_replace(kGood, std::regex(from), to), named), id) << from << " -> " << to;
  }
  for (const char* name :
       {"Version", "Dsts", "Folder", "Type", "Pattern", "Tasks", "Id", "Path", "FilterPath"}) {
    const std::regex element("(</?)" + std::string(name) + "\\b");
    EXPECT_EQ(Refusal(std::regex_replace(kGood, element, "$1Other"), my::WideFromUtf8(name)),
              IDS_XML_NODE_NOT_FOUND)
        << name;
  }
  for (size_t size = 0; size < kGood.size(); ++size) {
    EXPECT_EQ(Refusal(kGood.substr(0, size)), IDS_XML_LOAD_FAILED) << "cut after " << size;
  }
  EXPECT_EQ(Refusal(std::string(my::kLargestXmlFile + 1, ' '), texts.Text(IDS_FILE_TOO_LARGE)),
            IDS_XML_LOAD_FAILED);
  files.FailAt(Op::READ, 1, my::kErrorAccessDenied);
  EXPECT_EQ(Refusal(kGood, L"0x80070005"), IDS_XML_LOAD_FAILED);
}

TEST_F(DocumentFile, elements_are_found_by_name_wherever_they_stand) {
  const size_t dsts = kGood.find("<Dsts>");
  const size_t tasks = kGood.find("<Tasks>");
  const size_t end = kGood.find("</QuillmoorDoc>");
  EXPECT_EQ(Refusal(kGood.substr(0, dsts) + kGood.substr(tasks, end - tasks) +
                    "<New><Dst/></New>\r\n<!-- x -->" + kGood.substr(dsts, tasks - dsts) + kGood.substr(end)),
            0u);
  EXPECT_EQ(qlm::LoadDocument(files, dom, kPath).Tasks()[0]->dsts[0]->type, qlm::DstType::ZIP);
  EXPECT_EQ(Refusal("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n" + kGood), 0u);
}

TEST_F(DocumentFile, texts_come_back_as_they_were_and_stay_shared) {
  const qlm::CDocument document = Document(
      {L"", L" ", L"\t a \n", L"a\rb\nc\r\nd\n\r", L"<&>\"' ]]> &amp; &#13;", L"𠮷é字\xFFFD\x7F\x85"});
  Save(document);
  const qlm::CDocument loaded = qlm::LoadDocument(files, dom, kPath);
  EXPECT_EQ(loaded.Path(), kPath);
  ASSERT_EQ(loaded.Tasks().size(), 6u);
  for (size_t i = 0; i < loaded.Tasks().size(); ++i) {
    EXPECT_EQ(*loaded.Tasks()[i], *document.Tasks()[i]) << i;
    EXPECT_EQ(*loaded.Dsts()[i], *document.Dsts()[i]) << i;
    EXPECT_EQ(loaded.Tasks()[i]->dsts[0], loaded.Dsts()[0]) << "the same object";
  }
}

TEST_F(DocumentFile, bytes_are_those_of_the_format) {
  const std::string head =
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<QuillmoorDoc "
      "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
      "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\n<Version>1.0.0.0</Version>";
  Save({});
  EXPECT_EQ(files.Files().at(kPath), head + "<Dsts/><Tasks/></QuillmoorDoc>\n");
  qlm::CDocument document = Document({L"字&\r", L""});
  document.Tasks()[1]->dsts = {document.Dsts()[1], document.Dsts()[0]};
  document.Tasks()[1]->filterPath = L"f";
  Save(document);
  EXPECT_EQ(files.Files().at(kPath),
            head +
                "<Dsts><Dst><Folder>字&amp;&#xD;</Folder><Type>AES_256_ZIP</Type><Pattern>字&amp;&#xD;</"
                "Pattern></Dst>"
                "<Dst><Folder/><Type>AES_256_ZIP</Type><Pattern/></Dst></Dsts><Tasks><Task><Id>t0</"
                "Id><Path>字&amp;&#xD;</Path>"
                "<Dsts><Dst>0</Dst></Dsts><FilterPath>字&amp;&#xD;</FilterPath></Task>"
                "<Task><Id>t1</Id><Path/><Dsts><Dst>1</Dst><Dst>0</Dst></Dsts><FilterPath>f</FilterPath></"
                "Task></Tasks></QuillmoorDoc>\n");
}

TEST_F(DocumentFile, document_that_could_not_be_read_back_leaves_the_old_file) {
  files.AddFile(kPath, "old");
  for (const wchar_t bad : {L'\x01', L'\x1F', wchar_t(0xD800), L'\xFFFE'}) {
    EXPECT_EQ(test::ThrownId([&] { Save(Document({std::wstring(L"a") + bad})); }), IDS_XML_SET_TEXT_FAILED);
  }
  qlm::CDocument document = Document({L"a"});
  document.Tasks()[0]->dsts = {boost::make_shared<qlm::CDst>(*document.Dsts()[0])};
  EXPECT_EQ(test::ThrownId([&] { Save(document); }), IDS_DST_NOT_COMMON) << "equal, but not of the list";
  document = Document({L"a"});
  document.Tasks()[0]->id = L"";
  EXPECT_EQ(test::ThrownId([&] { Save(document); }), IDS_ID_EMPTY);
  EXPECT_EQ(files.Files(), (std::map<std::wstring, std::string>{{kPath, "old"}}));
}

// Saves over an old file, beside the leftover of somebody else, with every fault; checks what stands there.
class DocumentFileFaults : public DocumentFile {
 protected:
  DocumentFileFaults() {
    Save(document);
    newBytes = files.Files().at(kPath);
  }

  bool SaveFails() {
    try {
      Save(document);
      return false;
    } catch (const my::CException& failure) {
      EXPECT_EQ(failure.Id(), IDS_XML_SAVE_FAILED);
      EXPECT_EQ(failure.Where(), kPath);
    } catch (const test::CCrash&) {
    }
    return true;
  }

  void NewDisk() {
    files = {};
    files.AddFile(kPath, "old");
    files.AddFile(L"C:\\d\\_tmp_doc.qlmr", "theirs");
  }

  const qlm::CDocument document = Document({L"a", L"b"});
  std::string newBytes;
};

TEST_F(DocumentFileFaults, failing_operation_leaves_the_old_file_and_nothing_beside_it) {
  for (int kind = 0; kind <= static_cast<int>(Op::CLOSE); ++kind) {
    for (const bool removable : {true, false}) {
      for (int n = 1;; ++n) {
        SCOPED_TRACE(testing::Message() << "operation " << kind << ", the " << n << ".");
        NewDisk();
        if (!removable) files.FailAt(Op::REMOVE, 1);
        files.FailAt(static_cast<Op>(kind), n);
        const bool failed = SaveFails();
        EXPECT_EQ(files.Files().at(kPath), failed ? "old" : newBytes);
        EXPECT_EQ(files.Files().at(L"C:\\d\\_tmp_doc.qlmr"), "theirs");
        if (removable) EXPECT_EQ(files.Files().size(), 2u);
        if (!files.Failed()) break;
        ASSERT_LT(n, 50);
      }
    }
  }
}

TEST_F(DocumentFileFaults, crash_leaves_all_of_the_old_or_all_of_the_new) {
  for (int n = 1;; ++n) {
    NewDisk();
    files.CrashAt(n);
    const bool crashed = SaveFails();
    const std::string bytes = files.Files().at(kPath);
    EXPECT_TRUE(bytes == "old" || bytes == newBytes) << n << ": " << bytes;
    files.ClearFaults();
    EXPECT_FALSE(SaveFails()) << "what the crash left is in nobody's way";
    EXPECT_EQ(files.Files().at(kPath), newBytes);
    if (!crashed) break;
    ASSERT_LT(n, 50);
  }
}

}  // namespace
