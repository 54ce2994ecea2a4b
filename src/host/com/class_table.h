#pragma once

#include "com/ptr.h"

#include <vector>

namespace corvelle::host {

/// A class that outside clients can create.
struct ComClass {
    CLSID id;
    const wchar_t* progId;
    const wchar_t* description;
    /// A new object; throws.
    com::Ptr<IUnknown> (*make)();
    /// A new object that is part of the outer one's aggregate; throws. Null if the class cannot be one.
    com::Ptr<IUnknown> (*makePart)(IUnknown* outer) = nullptr;
    /// Whether it is a control, which containers look for by more entries in the registry.
    bool isControl = false;
};

/// All of them. A new class needs a row here and its coclass in corvelle.idl.
const std::vector<ComClass>& classTable();

} // namespace corvelle::host
