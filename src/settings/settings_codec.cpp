#include "settings/settings_codec.h"

#include "support/exception.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Formats a value that has no name, for messages.
my::CMsgArg Nameless(const my::CEnumTable& table, const std::wstring& value) {
  return std::wstring(table.enumName) + L": " + value;
}

}  // namespace

void CSettingsReader::Ints(const std::wstring& name, const std::wstring& itemName,
                           std::vector<int32_t>& values) const {
  values.clear();
  for (const my::CXmlElement& item : m_element.Child(name).Children(itemName)) values.push_back(item.Int());
}

void CSettingsReader::Strings(const std::wstring& name, const std::wstring& itemName,
                              my::CMruStrings& values) const {
  std::vector<std::wstring> texts;
  for (const my::CXmlElement& item : m_element.Child(name).Children(itemName)) texts.push_back(item.Text());
  values.Assign(std::move(texts));
}

void CSettingsReader::Flags(const std::wstring& name, const my::CEnumTable& table, uint32_t& value) const {
  const my::CXmlElement element = m_element.Child(name);
  const auto flags = my::ParseFlags(table, element.Text());
  if (!flags) throw my::CException(IDS_XML_UNKNOWN_FLAG, {element.Shown()});
  value = *flags;
}

uint32_t CSettingsReader::EnumNumber(const std::wstring& name, const my::CEnumTable& table) const {
  const my::CXmlElement element = m_element.Child(name);
  const auto number = my::EnumValue(table, element.Text());
  if (!number) throw my::CException(IDS_XML_BAD_ENUM, {element.Shown()});
  return *number;
}

void CSettingsWriter::Ints(const std::wstring& name, const std::wstring& itemName,
                           const std::vector<int32_t>& values) const {
  const auto list = m_node.Append(name);
  for (const int32_t value : values) my::AppendText(*list, itemName, std::to_wstring(value));
}

void CSettingsWriter::Strings(const std::wstring& name, const std::wstring& itemName,
                              const my::CMruStrings& values) const {
  const auto list = m_node.Append(name);
  for (const std::wstring& value : values.Items()) {
    if (my::IsXmlText(value)) my::AppendText(*list, itemName, value);
  }
}

void CSettingsWriter::Flags(const std::wstring& name, const my::CEnumTable& table, uint32_t value) const {
  const uint32_t unknown = my::UnknownFlags(table, value);
  if (unknown != 0) throw my::CException(IDS_XML_UNKNOWN_FLAG, {Nameless(table, my::HexText(unknown))});
  Text(name, my::FlagsText(table, value));
}

void CSettingsWriter::EnumNumber(const std::wstring& name, const my::CEnumTable& table,
                                 int32_t number) const {
  const auto text = my::EnumName(table, static_cast<uint32_t>(number));
  if (!text) throw my::CException(IDS_XML_UNKNOWN_ENUM, {Nameless(table, std::to_wstring(number))});
  Text(name, std::wstring(*text));
}

}  // namespace qlm
