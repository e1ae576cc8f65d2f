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

// Reads a document file (.qlmr, UTF-8 XML) and answers it as a document with that path. Throws the XML
// layer's messages, IDS_UNKNOWN_NAME for a bad type name, IDS_DST_NOT_COMMON for a bad index,
// IDS_ID_DUPLICATE, IDS_DST_DUPLICATE; the failure's text names the file and the element. Other IDs and empty
// values, which the editors refuse, are accepted.
CDocument LoadDocument(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path);

// Writes the document to the file. A failure (the XML layer's messages, IDS_DST_NOT_COMMON) leaves the old
// file as it was; what was written is known to read back as the same document.
void SaveDocument(my::IFileSystem& files, const my::IClock& clock, my::IXmlDom& dom,
                  const CDocument& document, const std::wstring& path);

// What a document file has in it, as bytes. Throws what SaveDocument throws; a task's destinations must be
// among the content's.
std::string DocumentBytes(my::IXmlDom& dom, const CContent& content);

// The reverse. Throws what LoadDocument throws.
CContent ContentFromBytes(my::IXmlDom& dom, std::string_view bytes);

}  // namespace qlm
