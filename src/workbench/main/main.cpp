// workbench [/addin:PROGID]... [FILE] - a stand-in for the IDE: opens a project and runs add-ins on it.

#include "workbench/command_line.h"
#include "workbench/main_window.h"

#include <clocale>

using namespace corvelle;

int main(int argc, char* argv[]) {
    std::setlocale(LC_CTYPE, ""); // paths are in the machine's code page
    const workbench::CommandLine arguments(argc, argv);
    workbench::MainWindow window;
    window.show();
    if (!arguments.file.empty()) window.open(arguments.file);
    return window.run();
}
