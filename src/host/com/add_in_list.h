#pragma once

namespace corvelle::host {

/// Enters the add-ins in the lists that the IDE looks for add-ins in, the user's registry and vbaddin.ini,
/// and the help file and the exclusion list beside the DLL in the user's settings. What the user has chosen
/// there already stays. Throws HresultError.
void enterAddIns();
/// Takes out what enterAddIns entered, but for settings that the user has changed since. Throws HresultError.
void removeAddIns();

} // namespace corvelle::host
