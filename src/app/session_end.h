// Decides whether the system may end the user's session.
#pragma once

#include <cstdint>

namespace qlm {

class CBackupThread;
class CDocument;

// GUI thread only.
class CSessionEnd {
 public:
  // Both must outlive the object.
  CSessionEnd(const CDocument& document, const CBackupThread& run) : m_document(document), m_run(run) {}

  // Returns the id of the reason why the session must not end now; 0 if it may end.
  uint32_t BlockReason() const;

  // The program requests the end of the session itself: from now on nothing blocks it, not even a run that is
  // still ending. The user has already been asked.
  void Request() { m_requested = true; }

  // The session continues, or there is new work about which the user was not asked.
  void Withdraw() { m_requested = false; }

 private:
  const CDocument& m_document;
  const CBackupThread& m_run;
  bool m_requested = false;
};

}  // namespace qlm
