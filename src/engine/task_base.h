// What every kind of job has that a worker thread runs.
#pragma once

#include <boost/smart_ptr/enable_shared_from_this.hpp>

namespace my {

// Asked by a running job whether it is to end. Callable from any thread.
class IStopQuery {
 public:
  virtual ~IStopQuery() = default;
  virtual bool IsStopRequested() const = 0;
};

// Throws IDS_STOPPED when a stop was requested; a null query never requests one.
void CheckStop(const IStopQuery* stop);

// A job of class TJob whose client TClient hears of its progress and its end. Held by shared pointer.
template <class TJob, class TClient, class TErr>
class CTask : public boost::enable_shared_from_this<TJob> {
 public:
  virtual ~CTask() = default;

  // To be set before the job runs; neither is owned, both may be null.
  void SetStopQuery(const IStopQuery* stop) { m_stop = stop; }
  void SetClient(TClient* client) { m_client = client; }

  // The error that ended the run; to be read after the run.
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
