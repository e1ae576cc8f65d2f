#include "document/text_file.h"

#include "platform/ansi_codec.h"
#include "platform/file_system.h"
#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Filters are short. A larger file is of another kind.
constexpr uint64_t kLargestTextFile = 16u << 20;

bool TakePrefix(std::string_view& bytes, std::string_view prefix) {
  if (!bytes.starts_with(prefix)) return false;
  bytes.remove_prefix(prefix.size());
  return true;
}

std::wstring DecodeUtf16(std::string_view bytes, bool bigEndian) {
  const auto unit = [&](size_t at) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
  };
  std::wstring text;
  const size_t end = bytes.size() / 2 * 2;
  for (size_t at = 0; at < end; at += 2) {
    char32_t c = unit(at);
    const char32_t next = my::IsHighSurrogate(c) && at + 2 < end ? unit(at + 2) : 0;
    if (my::IsLowSurrogate(next)) {
      c = my::CombineSurrogates(c, next);
      at += 2;
    }
    my::AppendCodePoint(text, my::IsSurrogate(c) ? my::kReplacementChar : c);
  }
  if (end != bytes.size()) my::AppendCodePoint(text, my::kReplacementChar);
  return text;
}

std::wstring DecodeText(const my::IAnsiCodec& ansi, std::string_view bytes) {
  if (TakePrefix(bytes, "\xEF\xBB\xBF")) return my::WideFromUtf8(bytes);
  if (TakePrefix(bytes, "\xFE\xFF")) return DecodeUtf16(bytes, true);
  if (TakePrefix(bytes, "\xFF\xFE")) return DecodeUtf16(bytes, false);
  return ansi.Decode(bytes);
}

std::vector<std::wstring> SplitLines(std::wstring_view text) {
  std::vector<std::wstring> lines;
  while (!text.empty()) {
    const size_t end = text.find_first_of(L"\r\n");
    lines.emplace_back(text.substr(0, end));
    if (end == text.npos) break;
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with(L"\r\n") ? 2 : 1);
  }
  return lines;
}

}  // namespace

std::vector<std::wstring> ReadTextLines(my::IFileSystem& files, const my::IAnsiCodec& ansi,
                                        const std::wstring& path) {
  if (path.empty()) throw my::CException(IDS_PATH_EMPTY);
  const std::string bytes = files.ReadFile(path, kLargestTextFile + 1);
  if (bytes.size() > kLargestTextFile) {
    throw my::CException(IDS_OPEN_FILE_FAILED, {my::CTextId{IDS_FILE_TOO_LARGE}, path});
  }
  return TextLines(ansi, bytes);
}

std::vector<std::wstring> TextLines(const my::IAnsiCodec& ansi, std::string_view bytes) {
  return SplitLines(DecodeText(ansi, bytes));
}

}  // namespace qlm
