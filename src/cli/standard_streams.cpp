#include "cli/standard_streams.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <csignal>
#include <fcntl.h>
#endif

namespace corvelle::cli {

#ifdef _WIN32

void prepareStandardStreams() {
    for (int stream = 0; stream <= 1; ++stream) _setmode(stream, _O_BINARY);
}

void outliveReaders() {}

#else

void prepareStandardStreams() {
    for (int stream = 0; stream <= 2; ++stream) {
        // The lowest free number is the one that open gives.
        if (::fcntl(stream, F_GETFD) < 0) ::open("/dev/null", stream == 0 ? O_WRONLY : O_RDONLY);
    }
    std::signal(SIGXFSZ, SIG_IGN);
}

void outliveReaders() {
    std::signal(SIGPIPE, SIG_IGN);
}

#endif

} // namespace corvelle::cli
