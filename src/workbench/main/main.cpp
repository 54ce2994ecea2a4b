// workbench [/addin:PROGID]... [FILE] - a stand-in for the IDE: opens a project and runs add-ins on it.

#include "base/scope_exit.h"
#include "workbench/workbench.h"

#include <memory>

using namespace corvelle;

int main(int argc, char* argv[]) {
    const workbench::CommandLine arguments(argc, argv);
    OleInitialize(nullptr);
    const base::ScopeExit ended([] { OleUninitialize(); });
    const auto workbench = std::make_shared<workbench::Workbench>();
    return workbench->run(workbench, arguments);
}
