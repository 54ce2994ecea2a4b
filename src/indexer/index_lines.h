#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The lines of the header file (.h) and of the configuration file (.hcnf), with their line ends.
namespace corvelle::indexer {

/// What stands around a designer and around a control, in any letter case.
inline constexpr std::string_view designerMark = "<P>", designerEndMark = "</P>";
inline constexpr std::string_view controlMark = "<C>", controlEndMark = "</C>";

/// A file of these lines that is kept in memory.
struct LinesInMemory {
    std::string bytes;
    void write(std::string_view more) { bytes += more; }
};

/// "#define IDH_AAAB  1001"; the file is anything with a function `write`.
template <class File>
void writeDefine(File& header, std::string_view idhName, std::int32_t number) {
    header.write("#define ");
    header.write(idhName);
    header.write("  ");
    header.write(std::to_string(number));
    header.write("\r\n");
}

/// "<P>frmMain</P>"; the file as above.
template <class File>
void writeDesigner(File& configuration, std::string_view name) {
    configuration.write(designerMark);
    configuration.write(name);
    configuration.write(designerEndMark);
    configuration.write("\r\n");
}

/// "<C>cmdOK CommandButton IDH_AAAB</C>"; the file as above.
template <class File>
void writeControl(File& configuration, std::string_view name, std::string_view className,
                  std::string_view idhName) {
    configuration.write(controlMark);
    configuration.write(name);
    configuration.write(" ");
    configuration.write(className);
    configuration.write(" ");
    configuration.write(idhName);
    configuration.write(controlEndMark);
    configuration.write("\r\n");
}

} // namespace corvelle::indexer
