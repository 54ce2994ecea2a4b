#include "host/com/indicator/view_advice.h"

namespace corvelle::host {

void ViewAdvice::set(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    aspects_ = aspects;
    flags_ = flags;
    sink_ = com::Ptr<IAdviseSink>(sink);
    if ((flags & ADVF_PRIMEFIRST) != 0) viewChanged();
}

void ViewAdvice::get(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
    if (aspects != nullptr) *aspects = aspects_;
    if (flags != nullptr) *flags = flags_;
    if (sink != nullptr) *sink = com::Ptr<IAdviseSink>(sink_).release();
}

void ViewAdvice::viewChanged() {
    if (!sink_ || (aspects_ & DVASPECT_CONTENT) == 0) return;
    const auto sink = sink_; // it may set another
    if ((flags_ & ADVF_ONLYONCE) != 0) sink_.reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

} // namespace corvelle::host
