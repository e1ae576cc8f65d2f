#include "platform/win32/msxml_dom.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <boost/smart_ptr/make_shared.hpp>

#include "document/document.h"
#include "document/document_file.h"
#include "document/text_file.h"
#include "platform/clock.h"
#include "platform/win32/com.h"
#include "platform/win32/win32_ansi_codec.h"
#include "platform/win32/win32_clock.h"
#include "platform/xml_layer.h"
#include "scratch_folder.h"
#include "settings/settings_file.h"
#include "support/checks.h"
#include "support/golden.h"
#include "support/strings.h"
#include "text_ids.h"

namespace {

const my::CComApartment com;

class MsxmlDom : public testing::Test {
 protected:
  // Returns the message id and text thrown when loading the bytes; 0 for none.
  uint32_t LoadFailure(const std::string& bytes) {
    const std::wstring path = m_scratch.At(L"in.qlmr");
    if (m_scratch.files.Kind(path) == my::PathKind::File) m_scratch.files.RemoveFile(path);
    m_scratch.Write(L"in.qlmr", bytes);
    try {
      qlm::LoadDocument(m_scratch.files, m_dom, path);
    } catch (const my::CException& failure) {
      EXPECT_EQ(failure.Where(), path);
      return failure.Id();
    }
    return 0;
  }

  test::CScratchFolder m_scratch;
  my::CMsxmlDom m_dom;
};

TEST_F(MsxmlDom, invalid_files_get_a_fitting_message) {
  const std::string good = "<QuillmoorDoc><Version>2.5.0.0</Version><Dsts/><Tasks/><Unknown/></QuillmoorDoc>";
  EXPECT_EQ(LoadFailure(good), 0u);
  std::string foreign = "<!-- x -->" + good;
  EXPECT_EQ(LoadFailure(foreign.insert(foreign.find("<Dsts"), "<?Dsts?><x:Tasks xmlns:x='u'/>")), 0u);
  EXPECT_EQ(LoadFailure(foreign.insert(foreign.find("<Tasks/>") + 6, " xmlns='u'")), IDS_XML_NODE_NOT_FOUND)
      << "as with XPath, a name in a namespace is another one";
  EXPECT_EQ(LoadFailure(""), IDS_XML_LOAD_FAILED);
  EXPECT_EQ(LoadFailure("no XML"), IDS_XML_LOAD_FAILED);
  EXPECT_EQ(LoadFailure(good.substr(0, good.size() - 3)), IDS_XML_LOAD_FAILED);
  EXPECT_EQ(LoadFailure("<!DOCTYPE QuillmoorDoc>" + good), IDS_XML_LOAD_FAILED);
  EXPECT_EQ(LoadFailure(std::string(50u << 20, 'x')), IDS_XML_LOAD_FAILED);
  EXPECT_EQ(LoadFailure("<QuillmoorDoc>" + std::string(2u << 20, '<')), IDS_XML_LOAD_FAILED);
}

TEST_F(MsxmlDom, line_breaks_round_trip_and_control_characters_are_refused) {
  const std::wstring path = m_scratch.At(L"文書.qlmr");
  const auto task = boost::make_shared<qlm::CTask>();
  qlm::CContent content;
  content.tasks.Append(task);
  for (const wchar_t* text : {L"\t a\rb\nc\r\nd\n ]]>\xFFFD", L"control \x01"}) {
    const std::wstring before = std::exchange(task->path, text);
    const bool good = before.empty();
    const auto save = [&] {
      qlm::SaveDocument(m_scratch.files, my::CWin32Clock(), m_dom, qlm::CDocument(content), path);
    };
    EXPECT_EQ(test::ThrownId(save), good ? 0u : IDS_XML_SET_TEXT_FAILED);
    EXPECT_EQ(qlm::LoadDocument(m_scratch.files, m_dom, path).Tasks()[0]->path, good ? text : before);
  }
}

TEST_F(MsxmlDom, golden_files_round_trip_byte_for_byte) {
  const std::wstring path = m_scratch.At(L"file");
  const my::CWin32Clock clock;
  for (const std::string name : {"document.qlmr", "settings_default.config", "settings_full.config"}) {
    const std::string golden = test::Golden(name);
    ASSERT_FALSE(golden.empty());
    m_scratch.Write(L"file", golden);
    qlm::CSettings settings(1);
    if (name == "document.qlmr") {
      qlm::SaveDocument(m_scratch.files, clock, m_dom, qlm::LoadDocument(m_scratch.files, m_dom, path), path);
    } else {
      qlm::LoadSettings(m_scratch.files, m_dom, path, settings);
      qlm::SaveSettings(m_scratch.files, clock, m_dom, path, settings);
    }
    EXPECT_EQ(m_scratch.files.ReadFile(path, 1 << 20), golden) << name;
    m_scratch.files.RemoveFile(path);
  }
}

TEST(Strings, character_beyond_the_bmp_is_a_surrogate_pair) {
  const std::string utf8 = "\xF0\xA0\xAE\xB7";
  EXPECT_EQ(my::WideFromUtf8(utf8), L"\xD842\xDFB7");
  EXPECT_EQ(my::Utf8FromWide(L"\xD842\xDFB7"), utf8);
  EXPECT_EQ(qlm::TextLines(my::CWin32AnsiCodec(), {"\xFF\xFE\x42\xD8\xB7\xDF", 6}).at(0), L"\xD842\xDFB7");
}

TEST(Win32AnsiCodec, invalid_bytes_are_marked_and_the_others_kept) {
  const my::CWin32AnsiCodec shiftJis(932);
  EXPECT_EQ(shiftJis.Decode("\x93\xFA\x96\x7B\x8C\xEA \xB1"), L"日本語 ｱ");
  EXPECT_EQ(shiftJis.Decode("a\xFF\x93\xFA\x81"), L"a\xFFFD日\xFFFD");
  EXPECT_EQ(shiftJis.Encode(L"日本語 ｱ"), "\x93\xFA\x96\x7B\x8C\xEA \xB1");
  EXPECT_EQ(shiftJis.Encode(L"é"), std::nullopt) << "e would be another file";
  const my::CWin32AnsiCodec utf8(65001);  // users can make it the system's code page
  EXPECT_EQ(utf8.Decode("\xFF\xC3\xA9\xE6\x97\xA5\xF0\xA0\xAE\xB7\xE6\x97z"), L"\xFFFDé日𠮷\xFFFD\xFFFDz");
  if (!::IsValidCodePage(54936)) return;  // missing in Wine
  const my::CWin32AnsiCodec gb18030(54936);
  EXPECT_EQ(gb18030.Decode("\xFF\xC8\xD5\x95\x34\xB2\x35z"), L"\xFFFD日𠮷z");
}

// The suite sets the time zone +05:45, in which every field except the second differs from UTC.
TEST(Win32Clock, converts_to_local_time_and_refuses_what_is_none) {
  const my::CWin32Clock clock;
  const my::CFileTime time{130'960'799'580'000'000};
  EXPECT_EQ(my::UtcCalendar(time), (my::CCalendar{2015, 12, 31, 23, 59, 18}));
  TIME_ZONE_INFORMATION zone{};
  const bool summer = ::GetTimeZoneInformation(&zone) == TIME_ZONE_ID_DAYLIGHT;
  const int64_t minutes = -zone.Bias - (summer ? zone.DaylightBias : zone.StandardBias);
  const my::CFileTime shifted{
      static_cast<uint64_t>(static_cast<int64_t>(time.ticks) + minutes * 600'000'000)};
  EXPECT_EQ(clock.LocalCalendar(time), my::UtcCalendar(shifted));
  EXPECT_TRUE(minutes == 345 || ::GetEnvironmentVariableW(L"QLM_TIME_ZONE", nullptr, 0) == 0) << minutes;
  for (const uint64_t outside : {~uint64_t{0}, uint64_t{1} << 63}) {
    EXPECT_THROW(clock.LocalCalendar({outside}), my::CException);
  }
}

}  // namespace
