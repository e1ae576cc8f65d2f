#include "engine/zip_end_record.h"

#include <algorithm>
#include <string_view>

#include "platform/file_system.h"

namespace qlm {
namespace {

constexpr std::string_view kEndMark = "PK\5\6";
constexpr size_t kEndSize = 22;
constexpr std::string_view kZip64LocatorMark = "PK\6\7";
constexpr size_t kZip64LocatorSize = 20;
constexpr std::string_view kZip64EndMark = "PK\6\6";
constexpr size_t kZip64EndSize = 56;
constexpr uint64_t kInZip64 = 0xFFFF;  // a count with this value refers to the Zip64 record

uint64_t Number(std::string_view bytes, size_t at, size_t size) {
  uint64_t value = 0;
  for (size_t i = size; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  return value;
}

}  // namespace

std::optional<uint64_t> CountZipEntries(my::IFileSystem& files, const std::wstring& path) {
  // The archiver writes no comment after the record. The Zip64 locator may precede it.
  const uint64_t size = files.FileSize(path);
  if (size < kEndSize) return {};
  const uint64_t from = size - std::min<uint64_t>(size, kZip64LocatorSize + kEndSize);
  const std::string tail = files.ReadFile(path, size - from, from);
  if (tail.size() != size - from) return {};
  const size_t end = tail.size() - kEndSize;
  if (!std::string_view(tail).substr(end).starts_with(kEndMark)) return {};
  const uint64_t count = Number(tail, end + 10, 2);
  if (count != kInZip64 || end < kZip64LocatorSize) return count;
  if (!tail.starts_with(kZip64LocatorMark)) return count;
  const std::string record = files.ReadFile(path, kZip64EndSize, Number(tail, 8, 8));
  if (record.size() != kZip64EndSize || !record.starts_with(kZip64EndMark)) return {};
  return Number(record, 32, 8);
}

}  // namespace qlm
