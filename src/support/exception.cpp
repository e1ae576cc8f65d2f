#include "support/exception.h"

namespace my {

CException::CException(uint32_t id, std::vector<CMsgArg> args)
    : m_id(id), m_args(std::move(args)), m_what("message " + std::to_string(id)) {}

CException::CException(CSystemError error) : CException(0, {error}) {}

uint32_t CException::Code() const {
  return m_id != 0 ? m_id : Detail();
}

CSystemError CException::SystemError() const {
  for (const CMsgArg& arg : m_args) {
    if (const auto* error = std::get_if<CSystemError>(&arg)) return *error;
  }
  return {};
}

CMsgArg CException::Cause() const {
  if (m_args.empty()) return CTextId{m_id};
  return m_args.front();
}

}  // namespace my
