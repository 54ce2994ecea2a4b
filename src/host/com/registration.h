#pragma once

namespace corvelle::host {

/// Enters the classes and the type library in the registry. Throws HresultError.
void registerServer();
/// Takes out what registerServer entered, and nothing that another copy of the DLL has entered since. Throws
/// HresultError.
void unregisterServer();

} // namespace corvelle::host
