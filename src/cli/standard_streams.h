#pragma once

namespace corvelle::cli {

/// Makes the standard streams fit for bytes and for files that must not come to harm. A stream that the
/// caller closed must not hand its number on to a module's file, which would then be given the messages; it
/// is opened so that its use fails. Where nothing more may be written the write fails, and the program goes
/// on to clean up.
void prepareStandardStreams();

/// From here on a reader of standard output or standard error that goes away does not end the program.
void outliveReaders();

} // namespace corvelle::cli
