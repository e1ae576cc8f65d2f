#include "engine/remedy.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>

#include "support/names.h"
#include "support/source_folder.h"
#include "text_ids.h"

namespace {

// Returns the names of all messages that a job may throw, without "IDS_".
std::set<std::string> JobErrors() {
  const std::regex kId("IDS_(\\w*[A-Z])\\b");
  // Not errors of rows: texts of states and phases, refusals of the run controller, reasons within other
  // messages.
  const std::regex kOther(
      "STATE_.*|PHASE_.*|ERR_.*|ALREADY_.*|NOT_RUNNING|START_THREAD_FAILED|PASSWORD_BAD_CHARACTER|"
      "ARCHIVE_PATH_HAS_BLANK|TASK_NO_SOURCE|REMEDY_.*|REGEX_(BR|ESCAPE|BACK_|REPEAT|CLASS|EXTENSION).*");
  std::set<std::string> names;
  for (const char* file :
       {"engine/archive_writer", "engine/auto_delete_file", "engine/backup_task", "engine/folder_copy",
        "engine/fresh_files", "engine/source_guard", "engine/task_base", "engine/task_filter",
        "engine/temporary_target", "document/filter", "support/regex", "support/name_faults", "support/paths",
        "platform/win32/win32_file_system", "platform/win32/win32_process"}) {
    std::ifstream stream(test::InSourceTree(std::string("src/") + file + ".cpp"));
    EXPECT_TRUE(stream) << file;
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    for (std::sregex_iterator at(text.begin(), text.end(), kId), end; at != end; ++at) {
      if (!std::regex_match((*at)[1].str(), kOther)) names.insert((*at)[1]);
    }
  }
  return names;
}

TEST(Remedy, every_error_of_a_job_has_one_of_its_own) {
  const auto ids = test::ReadPairs("text_ids.h", std::regex("#define IDS_(\\w+)\\s+(\\d+)\\s*"));
  EXPECT_GT(JobErrors().size(), 30u);
  for (const std::string& name : JobErrors()) {
    const auto id = static_cast<uint32_t>(std::stoul(ids.at(name)));
    EXPECT_NE(qlm::RemedyOf({id, 0, L""}), uint32_t{IDS_REMEDY_OTHER}) << name;
  }
}

TEST(Remedy, cause_given_by_the_system_counts_more_than_the_operation) {
  constexpr struct {
    uint32_t messageId, win32, remedyId;
  } kTable[] = {{IDS_COPY_FILE_FAILED, 5, IDS_REMEDY_ACCESS},
                {IDS_COPY_FILE_FAILED, 32, IDS_REMEDY_IN_USE},
                {IDS_WRITE_FILE_FAILED, 112, IDS_REMEDY_DISK_FULL},
                {IDS_PATH_UNREADABLE, 64, IDS_REMEDY_NETWORK},
                {IDS_CREATE_FOLDER_FAILED, 9999, IDS_REMEDY_WRITE},
                {IDS_CREATE_PROCESS_FAILED, 2, IDS_REMEDY_ARCHIVER},
                {IDS_NO_FILES, 3, IDS_REMEDY_NO_SOURCE},
                {IDS_NO_FILES, 0, IDS_REMEDY_NO_FILES}};
  for (const auto& [messageId, win32, remedyId] : kTable) {
    const auto detail = static_cast<uint32_t>(my::CSystemError::FromWin32(win32).hresult);
    EXPECT_EQ(test::NameOf(qlm::RemedyOf({messageId, detail, L""})), test::NameOf(remedyId)) << win32;
  }
}

}  // namespace
