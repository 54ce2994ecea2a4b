#include "base/file_error.h"
#include "base/temporary_file.h"
#include "cli/command_line.h"
#include "cli/exit_status.h"
#include "cli/terminal.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    corvelle::cli::prepareStandardStreams();
    corvelle::base::removeTemporaryFilesAtSignals();
    try {
        return corvelle::cli::runCommandLine(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "corvelle: " << corvelle::cli::shown(corvelle::base::reasonOf(error)) << std::endl;
        return corvelle::cli::exitFailed;
    }
}
