#pragma once

#include "indexer/help_index.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

// The configuration file (.hcnf) and the header file (.h): 8-bit text, lines that end in CR LF, nothing
// quoted.

/// A configuration file as it was read.
struct Mappings {
    HelpIndex index;               ///< the texts are empty
    std::vector<std::string> rows; ///< what the list of designers shows: the names whose line is complete
};

/// Reads a configuration file; any text is accepted. A file that cannot be read to its end counts as an empty
/// one, without a word; the index notes it.
Mappings LoadMappings(std::string_view path);

/// The same, of the file's bytes.
Mappings readMappings(std::string_view bytes);

/// Writes both files anew, with numbers from 1001 on in the order of designers, then entries; entries that
/// are deleted are left out, those on the default topic get no number. False on any failure, after which the
/// old configuration file is as it was and the header file as it was or new; two paths of one file are one,
/// and so is an index that was not read.
bool SaveIndexFiles(std::string_view configurationPath, std::string_view headerPath, const HelpIndex& index);

/// Writes the configuration file alone. False on any failure, after which the old one is as it was.
bool saveConfiguration(std::string_view path, const HelpIndex& index);

// Changes of one control in the bytes of a configuration file that leave every other byte as it is. The
// control's number is that of its entry, as `readMappings` gives it; one that the file has not changes
// nothing.

/// The file with another name for the control, which may have had none.
std::string withControlNamed(std::string_view bytes, std::size_t entry, std::string_view idhName);

/// The file without the control's line.
std::string withoutControl(std::string_view bytes, std::size_t entry);

} // namespace corvelle::indexer
