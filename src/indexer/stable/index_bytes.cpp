#include "indexer/stable/index_bytes.h"

#include "indexer/help_index.h"
#include "indexer/index_files.h"

#include <utility>

namespace corvelle::indexer::stable {

const std::string& nameInConfiguration(const NumberedDesigner& designer, const NumberedControl& control) {
    return control.control.empty() ? designer.name : control.control;
}

std::string headerOf(const Numbering& numbering, const Memory& memory) {
    LinesInMemory header;
    constexpr std::size_t usualLines = 96; // of a control: the two that it has
    header.bytes.reserve(memory.controls.size() * usualLines);
    writeDefine(header, defaultIDH, defaultHelpContextID);
    for (const auto& designer : numbering) {
        for (const auto& control : designer.controls) {
            if (control.idhName != defaultIDH) writeDefine(header, control.idhName, control.number);
        }
    }
    appendLines(header.bytes, memory);
    return std::move(header.bytes);
}

std::string configurationOf(const Numbering& numbering) {
    LinesInMemory configuration;
    for (const auto& designer : numbering) {
        writeDesigner(configuration, designer.name);
        for (const auto& control : designer.controls)
            writeControl(configuration, nameInConfiguration(designer, control), control.className,
                         control.idhName);
    }
    return std::move(configuration.bytes);
}

} // namespace corvelle::indexer::stable
