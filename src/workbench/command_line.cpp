#include "workbench/command_line.h"

#include "base/text.h"

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

} // namespace corvelle::workbench
