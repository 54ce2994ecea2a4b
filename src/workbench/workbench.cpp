#include "workbench/workbench.h"

#include "base/text.h"
#include "workbench/add_in_manager.h"
#include "workbench/model/vbe_object.h"
#include "workbench/window_procedure.h"

#include <string_view>

namespace corvelle::workbench {

CommandLine::CommandLine(int argc, const char* const* argv) {
    constexpr std::string_view addIn = "/addin:";
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (base::startsWithIgnoringCase(argument, addIn)) {
            addIns.emplace_back(argument.substr(addIn.size()));
        } else {
            file = argument;
        }
    }
}

Workbench::Workbench() : addIns_([this](const std::string& text) { reportError(window_.window(), text); }) {
    window_.commands.manageAddIns = [this] { workbench::manageAddIns(window_.window(), addIns_); };
    window_.commands.leaving = [this] { addIns_.disconnectAll(); };
    window_.commands.idle = [this] { addIns_.releaseLibraries(); };
}

Workbench::~Workbench() {
    addIns_.setVbe({});
}

int Workbench::run(const std::shared_ptr<Workbench>& self, const CommandLine& arguments) {
    addIns_.setVbe(serveVBE(self));
    window_.show();
    if (!arguments.file.empty()) window_.open(arguments.file);
    addIns_.start(arguments.addIns);
    return window_.run();
}

void Workbench::quit() {
    PostMessageA(window_.window(), WM_CLOSE, 0, 0);
}

} // namespace corvelle::workbench
