// The base of all jobs that run on a worker thread.
#pragma once

#include <boost/smart_ptr/enable_shared_from_this.hpp>

namespace my {

// Tells a running job whether to stop. Any thread may call.
class IStopQuery {
 public:
  virtual ~IStopQuery() = default;
  virtual bool IsStopRequested() const = 0;
};

// Throws IDS_STOPPED if a stop was requested. Does nothing if `stop` is null.
void CheckStop(const IStopQuery* stop);

// A job of class TJob. Its client TClient is notified of progress and end. Held by shared pointer.
template <class TJob, class TClient, class TErr>
class CTask : public boost::enable_shared_from_this<TJob> {
 public:
  virtual ~CTask() = default;

  // Must be set before the job runs; not owned, may be null.
  void SetStopQuery(const IStopQuery* stop) { m_stop = stop; }
  void SetClient(TClient* client) { m_client = client; }

  // The error that ended the run. Valid after the run.
  const TErr& Error() const { return m_error; }

 protected:
  // Called once after the run, whether it failed or not.
  virtual void OnEnd() {
    if (m_client) m_client->OnEnd(this->shared_from_this());
  }

  const IStopQuery* m_stop = nullptr;
  TErr m_error;
  TClient* m_client = nullptr;
};

}  // namespace my
