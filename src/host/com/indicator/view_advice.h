#pragma once

#include "com/ptr.h"

#include <ole2.h>

namespace corvelle::host {

/// Who wants to know that the view of an object has changed: one sink at most.
class ViewAdvice {
  public:
    /// A null sink ends the advice.
    void set(DWORD aspects, DWORD flags, IAdviseSink* sink);
    /// Each may be null.
    void get(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const;
    void viewChanged();

  private:
    DWORD aspects_ = 0, flags_ = 0; // DVASPECT_..., ADVF_...
    com::Ptr<IAdviseSink> sink_;
};

} // namespace corvelle::host
