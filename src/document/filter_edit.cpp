#include "document/filter_edit.h"

#include "platform/ansi_codec.h"
#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";

// Returns the first line end of the file. The bytes 0 of UTF-16 are between those of the characters.
std::wstring LineEnd(std::string_view bytes) {
  const size_t at = bytes.find_first_of("\r\n");
  if (at == bytes.npos) return L"\r\n";
  if (bytes[at] == '\n') return L"\n";
  const size_t next = bytes.find_first_not_of('\0', at + 1);
  return next != bytes.npos && bytes[next] == '\n' ? L"\r\n" : L"\r";
}

void AppendUnit(std::string& bytes, char32_t unit, bool bigEndian) {
  const char low = static_cast<char>(unit & 0xFF);
  const char high = static_cast<char>(unit >> 8);
  bytes += bigEndian ? high : low;
  bytes += bigEndian ? low : high;
}

std::string Utf16FromWide(std::wstring_view text, bool bigEndian) {
  std::string bytes;
  for (size_t at = 0; at < text.size();) {
    const char32_t c = my::NextCodePoint(text, at);
    if (c < 0x10000) {
      AppendUnit(bytes, c, bigEndian);
      continue;
    }
    AppendUnit(bytes, 0xD800 + ((c - 0x10000) >> 10), bigEndian);
    AppendUnit(bytes, 0xDC00 + ((c - 0x10000) & 0x3FF), bigEndian);
  }
  return bytes;
}

std::string AfterMark(std::string_view bytes, std::string_view mark, std::string_view line) {
  return std::string(mark).append(line).append(bytes.substr(mark.size()));
}

}  // namespace

std::string WithFirstLine(const my::IAnsiCodec& ansi, std::string_view bytes, std::wstring_view line) {
  const std::wstring text = std::wstring(line) + LineEnd(bytes);
  if (bytes.empty()) return std::string(kUtf8Mark) + my::Utf8FromWide(text);
  if (bytes.starts_with(kUtf8Mark)) return AfterMark(bytes, kUtf8Mark, my::Utf8FromWide(text));
  for (const std::string_view mark : {kBigEndianMark, kLittleEndianMark}) {
    if (bytes.starts_with(mark)) return AfterMark(bytes, mark, Utf16FromWide(text, mark == kBigEndianMark));
  }
  const auto encoded = ansi.Encode(text);
  if (!encoded) throw my::CException(IDS_FILTER_NOT_ENCODABLE, {std::wstring(line)});
  return AfterMark(bytes, {}, *encoded);
}

}  // namespace qlm
