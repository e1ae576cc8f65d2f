#pragma once

#include <string>
#include <string_view>

namespace my {
class IClock;
class IFileSystem;
class IXmlDom;
}  // namespace my

namespace qlm {

class CDocument;
struct CContent;

// Reads a document file (.qlmr, UTF-8 XML). Throws the errors of the XML layer, IDS_UNKNOWN_NAME for an
// unknown type, IDS_DST_NOT_COMMON for an invalid index, IDS_ID_DUPLICATE, IDS_DST_DUPLICATE; the failure
// names the file and the element. Accepts IDs and empty values that the editors refuse.
CDocument LoadDocument(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path);

// Writes the document to the file, after checking that the written bytes load as an equal document. If it
// throws (errors of the XML layer, IDS_DST_NOT_COMMON), the old file is unchanged.
void SaveDocument(my::IFileSystem& files, const my::IClock& clock, my::IXmlDom& dom,
                  const CDocument& document, const std::wstring& path);

// Returns the bytes of a document file. The destinations of tasks must be in the content. Throws what
// SaveDocument throws.
std::string DocumentBytes(my::IXmlDom& dom, const CContent& content);

// Parses the bytes of a document file. Throws what LoadDocument throws.
CContent ContentFromBytes(my::IXmlDom& dom, std::string_view bytes);

}  // namespace qlm
