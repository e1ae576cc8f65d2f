#pragma once

#include "platform/process.h"

namespace my {

class CWin32Process : public IProcess {
 public:
  uint32_t Run(const CProcessStart& start) override;
};

}  // namespace my
