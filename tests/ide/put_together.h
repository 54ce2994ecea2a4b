#pragma once

#include "ide/workspace/module_file.h"

#include <string>

namespace corvelle::test {

/// The file again, from the parts that it was taken apart into.
inline std::string putTogether(const workspace::ModuleFile& file) {
    std::string bytes(file.header());
    auto run = file.hiddenRuns().begin();
    for (std::uint32_t i = 0; i <= file.codeLineCount(); ++i) {
        for (; run != file.hiddenRuns().end() && run->codeLinesBefore == i; ++run) bytes += file.hidden(*run);
        if (i == file.codeLineCount()) break;
        bytes += file.codeLine(i);
        bytes += file.codeLineEnd(i);
    }
    return bytes;
}

} // namespace corvelle::test
