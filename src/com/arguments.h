#pragma once

#include "com/variant.h"

#include <cstddef>
#include <cstdint>
#include <ole2.h>
#include <string>

namespace corvelle::com {

/// The arguments of a late-bound call, in the order in which they are written: 0 is the first. An argument
/// that is not there counts as left out. What has the wrong type throws HresultError(DISP_E_TYPEMISMATCH).
class Arguments {
  public:
    explicit Arguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

    std::size_t count() const { return parameters_.cArgs; }
    bool has(std::size_t index) const;
    /// The value itself, behind a reference to a Variant.
    const VARIANT& at(std::size_t index) const;

    std::int32_t number(std::size_t index) const;
    bool boolean(std::size_t index) const;
    std::string text(std::size_t index) const;
    /// None for Nothing.
    Ptr<IDispatch> object(std::size_t index) const;
    /// Whether it is text; a number otherwise, as for an index that may be either.
    bool isText(std::size_t index) const;

    /// Writes a by-reference Boolean; nothing happens where the caller wants none back.
    void setBoolean(std::size_t index, bool value) const;

  private:
    const DISPPARAMS& parameters_;
};

} // namespace corvelle::com
