#include "host/com/indicator/connection_points.h"

#include "com/error.h"

#include <algorithm>

namespace corvelle::host {

HRESULT ConnectionPoints::Next(ULONG count, IConnectionPoint** points, ULONG* got) {
    if (!points || (!got && count != 1)) return E_POINTER;
    ULONG given = 0;
    for (; given < count && next_ < points_.size(); ++given, ++next_) {
        points[given] = com::Ptr<IConnectionPoint>(points_[next_]).release();
    }
    if (got) *got = given;
    return given == count ? S_OK : S_FALSE;
}

HRESULT ConnectionPoints::Skip(ULONG count) {
    const std::size_t skipped = std::min<std::size_t>(count, points_.size() - next_);
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
}

HRESULT ConnectionPoints::Reset() {
    next_ = 0;
    return S_OK;
}

HRESULT ConnectionPoints::Clone(IEnumConnectionPoints** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return com::guarded([&] { *result = com::make<ConnectionPoints>(points_, next_).release(); });
}

void ViewAdvice::set(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    aspects_ = aspects;
    flags_ = flags;
    sink_ = com::Ptr<IAdviseSink>(sink);
    if ((flags & ADVF_PRIMEFIRST) != 0) viewChanged();
}

void ViewAdvice::get(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
    if (aspects) *aspects = aspects_;
    if (flags) *flags = flags_;
    if (sink) *sink = com::Ptr<IAdviseSink>(sink_).release();
}

void ViewAdvice::viewChanged() {
    if (!sink_ || (aspects_ & DVASPECT_CONTENT) == 0) return;
    const auto sink = sink_; // it may set another
    if ((flags_ & ADVF_ONLYONCE) != 0) sink_.reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

} // namespace corvelle::host
