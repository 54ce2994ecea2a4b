#include "cli/command_line.h"

#include <exception>
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

int main(int argc, char** argv) {
#ifdef _WIN32
    for (const int stream : {0, 1}) _setmode(stream, _O_BINARY); // modules are bytes
#endif
    try {
        return corvelle::cli::runCommandLine(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "corvelle: " << error.what() << std::endl;
        return 2;
    }
}
