#include "cli/command_line.h"
#include "cli/standard_streams.h"

#include <clocale>
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
#ifdef _WIN32
    std::setlocale(LC_CTYPE, ""); // paths are in the machine's code page
#endif
    corvelle::cli::prepareStandardStreams();
    try {
        return corvelle::cli::runCommandLine(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "corvelle: " << error.what() << std::endl;
        return 2;
    }
}
