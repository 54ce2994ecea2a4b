#pragma once

#include "com/ptr.h"

namespace corvelle::host {

/// A new connect object each. Throws.
com::Ptr<IUnknown> makeCodeFormatter();
com::Ptr<IUnknown> makeContextHelpIndexer();

} // namespace corvelle::host
