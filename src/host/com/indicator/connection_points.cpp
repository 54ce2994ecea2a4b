#include "host/com/indicator/connection_points.h"

#include "com/error.h"

#include <algorithm>

namespace corvelle::host {

HRESULT ConnectionPoints::Next(ULONG count, IConnectionPoint** points, ULONG* got) {
    if (points == nullptr || (got == nullptr && count != 1)) return E_POINTER;
    ULONG given = 0;
    for (; given < count && next_ < points_.size(); ++given, ++next_) {
        points[given] = com::Ptr<IConnectionPoint>(points_[next_]).release();
    }
    if (got != nullptr) *got = given;
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
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    return com::guarded([&] { *result = com::make<ConnectionPoints>(points_, next_).release(); });
}

} // namespace corvelle::host
