#include "engine/remedy.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>

#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {
namespace {

struct CSystemRemedy {
  uint32_t first;  // Win32 codes, both inclusive
  uint32_t last;
  uint32_t remedyId;
};

// By the codes of winerror.h. The first match counts.
constexpr CSystemRemedy kBySystem[] = {
    {2, 3, IDS_REMEDY_NOT_FOUND},
    {4, 4, IDS_REMEDY_MEMORY},  // too many open files
    {5, 5, IDS_REMEDY_ACCESS},
    {8, 8, IDS_REMEDY_MEMORY},
    {14, 14, IDS_REMEDY_MEMORY},
    {15, 15, IDS_REMEDY_NOT_READY},  // unknown drive
    {19, 19, IDS_REMEDY_WRITE_PROTECTED},
    {20, 21, IDS_REMEDY_NOT_READY},
    {23, 31, IDS_REMEDY_DISK_ERROR},  // checksum, sector, read and write faults
    {32, 33, IDS_REMEDY_IN_USE},
    {39, 39, IDS_REMEDY_DISK_FULL},
    {51, 64, IDS_REMEDY_NETWORK},
    {65, 65, IDS_REMEDY_ACCESS},  // to the network
    {67, 71, IDS_REMEDY_NETWORK},
    {80, 80, IDS_REMEDY_TARGET_TAKEN},
    {82, 82, IDS_REMEDY_WRITE},  // a folder or file cannot be created
    {86, 86, IDS_REMEDY_LOGON},
    {112, 112, IDS_REMEDY_DISK_FULL},
    {121, 121, IDS_REMEDY_NETWORK},
    {123, 123, IDS_REMEDY_BAD_NAME},
    {161, 161, IDS_REMEDY_BAD_NAME},
    {183, 183, IDS_REMEDY_TARGET_TAKEN},
    {206, 206, IDS_REMEDY_TOO_LONG},
    {223, 223, IDS_REMEDY_FILE_TOO_LARGE},
    {225, 226, IDS_REMEDY_VIRUS},
    {267, 267, IDS_REMEDY_NOT_FOUND},  // not a folder
    {358, 404, IDS_REMEDY_CLOUD},
    {433, 433, IDS_REMEDY_NOT_READY},
    {483, 483, IDS_REMEDY_DISK_ERROR},
    {1005, 1006, IDS_REMEDY_NOT_READY},  // unknown file system, volume removed
    {1112, 1112, IDS_REMEDY_NOT_READY},  // no medium
    {1117, 1117, IDS_REMEDY_DISK_ERROR},
    {1167, 1167, IDS_REMEDY_NOT_READY},
    {1203, 1203, IDS_REMEDY_NETWORK},
    {1219, 1219, IDS_REMEDY_LOGON},
    {1222, 1222, IDS_REMEDY_NETWORK},
    {1224, 1224, IDS_REMEDY_IN_USE},  // mapped by a program
    {1225, 1236, IDS_REMEDY_NETWORK},
    {1244, 1245, IDS_REMEDY_LOGON},
    {1256, 1256, IDS_REMEDY_NETWORK},
    {1295, 1295, IDS_REMEDY_DISK_FULL},  // quota
    {1314, 1314, IDS_REMEDY_ACCESS},
    {1326, 1331, IDS_REMEDY_LOGON},
    {1392, 1393, IDS_REMEDY_DISK_ERROR},
    {1450, 1455, IDS_REMEDY_MEMORY},
    {1907, 1909, IDS_REMEDY_LOGON},
};

struct CMessageRemedy {
  uint32_t messageId;
  uint32_t remedyId;
};

// Messages whose remedy does not depend on the system error.
constexpr CMessageRemedy kByMessage[] = {
    {IDS_CREATE_PROCESS_FAILED, IDS_REMEDY_ARCHIVER},
    {IDS_TEMP_PATH_FAILED, IDS_REMEDY_TEMPORARY},
    {IDS_STOPPED, IDS_REMEDY_STOPPED},
    {IDS_FILTER_HAS_ERRORS, IDS_REMEDY_FILTER},
    {IDS_FILTER_BAD_SIGN, IDS_REMEDY_FILTER_SIGN},
    {IDS_FILTER_BAD_FORM, IDS_REMEDY_FILTER_FORM},
    {IDS_REGEX_ERROR, IDS_REMEDY_REGEX},
    {IDS_REGEX_INVALID, IDS_REMEDY_REGEX},
    {IDS_REGEX_TOO_COMPLEX, IDS_REMEDY_REGEX_COMPLEX},
    {IDS_TARGET_IS_FILE, IDS_REMEDY_TARGET_TAKEN},
    {IDS_TARGET_IS_FOLDER, IDS_REMEDY_TARGET_TAKEN},
    {IDS_PATH_NO_FILE_NAME, IDS_REMEDY_NAME},
    {IDS_NAME_ONLY_DOTS, IDS_REMEDY_NAME},
    {IDS_NAME_IS_DEVICE, IDS_REMEDY_NAME},
    {IDS_NAME_HAS_COLON, IDS_REMEDY_NAME},
    {IDS_SPACE_IN_ARCHIVE, IDS_REMEDY_BAD_NAME},
    {IDS_PROCESS_EXIT_CODE, IDS_REMEDY_ARCHIVER_FAILED},
    {IDS_EXIT_CODE_FAILED, IDS_REMEDY_ARCHIVER_FAILED},
    {IDS_ARCHIVE_INCOMPLETE, IDS_REMEDY_INCOMPLETE},
    {IDS_COPY_INCOMPLETE, IDS_REMEDY_INCOMPLETE},
    {IDS_SOURCE_BECAME_LINK, IDS_REMEDY_BECAME_LINK},
    {IDS_INTERNAL_ERROR, IDS_REMEDY_INTERNAL},
    {IDS_STD_ERROR, IDS_REMEDY_INTERNAL},
    {IDS_ATL_ERROR, IDS_REMEDY_INTERNAL},
};

// For system errors that kBySystem does not list.
constexpr CMessageRemedy kByOperation[] = {
    {IDS_NO_FILES, IDS_REMEDY_NO_FILES},         {IDS_LIST_FOLDER_FAILED, IDS_REMEDY_READ},
    {IDS_OPEN_FILE_FAILED, IDS_REMEDY_READ},     {IDS_READ_FILE_FAILED, IDS_REMEDY_READ},
    {IDS_PATH_UNREADABLE, IDS_REMEDY_NOT_READY}, {IDS_COPY_FILE_FAILED, IDS_REMEDY_WRITE},
    {IDS_MOVE_FILE_FAILED, IDS_REMEDY_WRITE},    {IDS_DELETE_FAILED, IDS_REMEDY_WRITE},
    {IDS_CREATE_FILE_FAILED, IDS_REMEDY_WRITE},  {IDS_CREATE_FOLDER_FAILED, IDS_REMEDY_WRITE},
    {IDS_WRITE_FILE_FAILED, IDS_REMEDY_WRITE},
};

std::optional<uint32_t> FindMessage(std::span<const CMessageRemedy> table, uint32_t messageId) {
  const auto found = std::ranges::find(table, messageId, &CMessageRemedy::messageId);
  if (found == table.end()) return {};
  return found->remedyId;
}

// Returns the Win32 code of an HRESULT; 0 if it has none.
uint32_t Win32Code(uint32_t hresult) {
  return (hresult & 0xFFFF0000u) == 0x80070000u ? hresult & 0xFFFF : 0;
}

std::optional<uint32_t> FindSystem(uint32_t code) {
  const auto covers = [code](const CSystemRemedy& entry) {
    return entry.first <= code && code <= entry.last;
  };
  const auto found = std::ranges::find_if(kBySystem, covers);
  if (found == std::end(kBySystem)) return {};
  return found->remedyId;
}

}  // namespace

uint32_t RemedyOf(const my::CSimpleErr& error) {
  if (const auto remedy = FindMessage(kByMessage, error.code)) return *remedy;
  const auto bySystem = FindSystem(Win32Code(error.detail));
  if (error.code == IDS_NO_FILES && bySystem == IDS_REMEDY_NOT_FOUND) return IDS_REMEDY_NO_SOURCE;
  if (bySystem) return *bySystem;
  return FindMessage(kByOperation, error.code).value_or(IDS_REMEDY_OTHER);
}

std::wstring RemedyLine(const my::IMessageTexts& texts, const my::CSimpleErr& error) {
  if (!error) return {};
  const my::CMsgArg remedy = my::CTextId{RemedyOf(error)};
  return my::MakeText(texts, IDS_REMEDY_LINE, {&remedy, 1});
}

}  // namespace qlm
