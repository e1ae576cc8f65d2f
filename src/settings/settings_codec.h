// Two visitors of the group descriptions in settings_layout.h: one reads the fields from elements, the other
// writes elements from the fields.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/xml_layer.h"
#include "support/enum_names.h"
#include "support/mru_strings.h"

namespace qlm {

// Reads the children of one element. Throws IDS_XML_NODE_NOT_FOUND for a missing element, and the error of
// the XML layer for an invalid value.
class CSettingsReader {
 public:
  // The element must outlive the reader.
  CSettingsReader(const my::CXmlElement& element, const my::CVersion& fileVersion)
      : m_element(element), m_fileVersion(fileVersion) {}

  void Text(const std::wstring& name, std::wstring& value) const { value = m_element.Child(name).Text(); }
  void Bool(const std::wstring& name, bool& value) const { value = m_element.Child(name).Bool(); }
  void Int(const std::wstring& name, int32_t& value) const { value = m_element.Child(name).Int(); }
  void Color(const std::wstring& name, my::CColor& value) const { value = m_element.Child(name).Color(); }
  void Bytes(const std::wstring& name, std::string& value) const { value = m_element.Child(name).Bytes(); }
  void Ints(const std::wstring& name, const std::wstring& itemName, std::vector<int32_t>& values) const;
  void Strings(const std::wstring& name, const std::wstring& itemName, my::CMruStrings& values) const;
  void Flags(const std::wstring& name, const my::CEnumTable& table, uint32_t& value) const;

  template <class Value>
  void Enum(const std::wstring& name, const my::CEnumTable& table, Value& value) const {
    value = static_cast<Value>(EnumNumber(name, table));
  }

  // Assigns the group only if all of it was read.
  template <class T>
  void Group(const std::wstring& name, T& group) const {
    const my::CXmlElement element = m_element.Child(name);
    const CSettingsReader reader(element, m_fileVersion);
    T read = group;
    Describe(reader, read);
    group = std::move(read);
  }

  // Reads a group that files of older versions do not have.
  template <class T>
  void GroupSince(const my::CVersion& version, const std::wstring& name, T& group) const {
    if (m_fileVersion >= version) Group(name, group);
  }

 private:
  uint32_t EnumNumber(const std::wstring& name, const my::CEnumTable& table) const;

  const my::CXmlElement& m_element;
  my::CVersion m_fileVersion;
};

// Appends children to one element. Throws IDS_XML_UNKNOWN_ENUM or IDS_XML_UNKNOWN_FLAG for a value without a
// name, and the errors of the XML layer. A text that XML cannot represent, such as a path with a lone
// surrogate, is omitted so that the other settings can still be saved.
class CSettingsWriter {
 public:
  // The node must outlive the writer.
  explicit CSettingsWriter(my::IXmlNode& node) : m_node(node) {}

  void Text(const std::wstring& name, const std::wstring& value) const {
    my::AppendText(m_node, name, my::IsXmlText(value) ? value : std::wstring());
  }
  void Bool(const std::wstring& name, bool value) const { Text(name, my::BoolText(value)); }
  void Int(const std::wstring& name, int32_t value) const { Text(name, std::to_wstring(value)); }
  void Color(const std::wstring& name, my::CColor value) const { Text(name, my::ColorText(value)); }
  void Bytes(const std::wstring& name, const std::string& value) const { Text(name, my::BytesText(value)); }
  void Ints(const std::wstring& name, const std::wstring& itemName, const std::vector<int32_t>& values) const;
  void Strings(const std::wstring& name, const std::wstring& itemName, const my::CMruStrings& values) const;
  void Flags(const std::wstring& name, const my::CEnumTable& table, uint32_t value) const;

  template <class Value>
  void Enum(const std::wstring& name, const my::CEnumTable& table, Value value) const {
    EnumNumber(name, table, static_cast<int32_t>(value));
  }

  template <class T>
  void Group(const std::wstring& name, T& group) const {
    const auto node = m_node.Append(name);
    const CSettingsWriter writer(*node);
    Describe(writer, group);
  }

  // The file is always written in the newest version.
  template <class T>
  void GroupSince(const my::CVersion&, const std::wstring& name, T& group) const {
    Group(name, group);
  }

 private:
  void EnumNumber(const std::wstring& name, const my::CEnumTable& table, int32_t number) const;

  my::IXmlNode& m_node;
};

}  // namespace qlm
