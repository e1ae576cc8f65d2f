#pragma once

#include "platform/xml_dom.h"

namespace test {

// The XML document object model for builds without the platform's own.
struct CPugiDom : my::IXmlDom {
  std::unique_ptr<my::IXmlDocument> Create() override;

  bool losesBlanks = false;  // texts of nothing but whitespace, when it loads
};

}  // namespace test
