// Whether the system may end the user's session.
#pragma once

#include <cstdint>

namespace qlm {

class CBackupThread;
class CDocument;

// GUI thread only.
class CSessionEnd {
 public:
  // Both outlive the object.
  CSessionEnd(const CDocument& document, const CBackupThread& run) : m_document(document), m_run(run) {}

  // Returns the id of the text that tells why the session must not end now, 0 if it may end.
  uint32_t BlockReason() const;

  // The program itself asks the system to end the session: from now on nothing blocks it, a run that is
  // still ending included. The user has been asked already.
  void Request() { m_requested = true; }

  // The session goes on, or there is new work that the user was not asked about.
  void Withdraw() { m_requested = false; }

 private:
  const CDocument& m_document;
  const CBackupThread& m_run;
  bool m_requested = false;
};

}  // namespace qlm
