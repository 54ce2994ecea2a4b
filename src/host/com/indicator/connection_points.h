#pragma once

#include "com/object.h"

#include <cstddef>
#include <ocidl.h>
#include <vector>

namespace corvelle::host {

/// Goes through a control's connection points.
class ConnectionPoints : public com::Object<IEnumConnectionPoints> {
  public:
    explicit ConnectionPoints(std::vector<com::Ptr<IConnectionPoint>> points, std::size_t next = 0)
        : points_(std::move(points)), next_(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points, ULONG* got) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** result) override;

  private:
    std::vector<com::Ptr<IConnectionPoint>> points_;
    std::size_t next_;
};

} // namespace corvelle::host
