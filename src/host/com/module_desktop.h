#pragma once

#include "forms/desktop.h"

#include <memory>

namespace corvelle::host {

/// The window system for the DLL's objects, one for all of them; made when the first one wants it. Whoever
/// uses it keeps it. Throws HresultError on another thread than the one that made it, until it is released.
std::shared_ptr<forms::Desktop> useDesktop();
/// Lets go of it if nobody uses it any more, so that the DLL can go. False if it has to stay.
bool releaseDesktop();

} // namespace corvelle::host
