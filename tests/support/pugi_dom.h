#pragma once

#include "platform/xml_dom.h"

namespace test {

// The XML DOM of the host build.
struct CPugiDom : my::IXmlDom {
  std::unique_ptr<my::IXmlDocument> Create() override;

  bool losesBlanks = false;  // drops texts of only whitespace when loading
};

}  // namespace test
