// workbench [/addin:PROGID]... [FILE] - a stand-in for the IDE: opens a project and runs add-ins on it.

#include "workbench/workbench.h"

#include <memory>

using namespace corvelle;

namespace {

/// The thread's use of COM.
struct Com {
    Com() { OleInitialize(nullptr); }
    ~Com() { OleUninitialize(); }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
};

} // namespace

int main(int argc, char* argv[]) {
    const workbench::CommandLine arguments(argc, argv);
    const Com com;
    const auto workbench = std::make_shared<workbench::Workbench>();
    return workbench->run(workbench, arguments);
}
