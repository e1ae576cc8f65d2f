#pragma once

#include "platform/xml_dom.h"

namespace my {

// The DOM of MSXML 6. COM must be initialized on the thread that uses it.
class CMsxmlDom : public IXmlDom {
 public:
  std::unique_ptr<IXmlDocument> Create() override;
};

}  // namespace my
