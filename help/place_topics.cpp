// place_topics HELP.chm STRINGS FOLDER
//
// The help compiler names the pages of context numbers by their absolute paths where it compiled them,
// FOLDER, and no viewer finds them there. This puts their places inside the help file instead: "/page.html".
// STRINGS is the file's own "#STRINGS" as it was extracted. It stands among the compressed contents; here it
// gets a second, uncompressed copy behind them, of the same size and with every string at its old place, and
// the directory is led to that. The file's two time stamps become zero, so that the same pages always make
// the same file.

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace {

std::string readAll(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(std::string("cannot read ") + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::uint64_t number(const std::string& bytes, std::size_t at, std::size_t size) {
    std::uint64_t result = 0;
    for (std::size_t i = size; i-- > 0;) result = result << 8U | static_cast<unsigned char>(bytes.at(at + i));
    return result;
}

void putNumber(std::string& bytes, std::size_t at, std::size_t size, std::uint64_t value) {
    for (std::size_t i = 0; i < size; ++i, value >>= 8U) bytes.at(at + i) = static_cast<char>(value & 0xFFU);
}

/// Takes the folder off every string that begins with it; the strings stay where they begin. Returns how many
/// did.
int placeStrings(std::string& strings, const std::string& folder) {
    int placed = 0;
    for (std::size_t at = 0; at < strings.size();) {
        std::size_t end = strings.find('\0', at);
        if (end == std::string::npos) end = strings.size();
        if (strings.compare(at, folder.size() + 1, folder + '/') == 0) {
            const std::string rest = strings.substr(at + folder.size(), end - at - folder.size());
            strings.replace(at, end - at, rest + std::string(folder.size(), '\0'));
            ++placed;
        }
        at = end + 1;
    }
    return placed;
}

/// An integer of the directory: seven bits a byte, the most significant first, the top bit set in all but the
/// last.
struct PackedInteger {
    std::size_t at;
    std::size_t size = 0;
    std::uint64_t value = 0;

    PackedInteger(const std::string& bytes, std::size_t start) : at(start) {
        unsigned char byte = 0;
        do {
            byte = static_cast<unsigned char>(bytes.at(at + size++));
            value = value << 7U | (byte & 0x7FU);
        } while ((byte & 0x80U) != 0);
    }

    /// Writes a value over the old one in exactly as many bytes.
    void put(std::string& bytes, std::uint64_t wanted) const {
        for (std::size_t i = size; i-- > 0; wanted >>= 7U)
            bytes[at + i] = static_cast<char>((wanted & 0x7FU) | (i + 1 < size ? 0x80U : 0U));
        if (wanted != 0) throw std::runtime_error("the directory has no room for the new place");
    }
};

/// The directory's entry of a file: where it is kept.
struct Entry {
    PackedInteger section, offset, length;
};

Entry entryOf(const std::string& help, const std::string& name) {
    const std::string stored = static_cast<char>(name.size()) + name;
    const std::size_t directory = number(help, 0x48, 8);
    const std::size_t at = help.find(stored, directory);
    if (at == std::string::npos || at > directory + number(help, 0x50, 8)) {
        throw std::runtime_error("no " + name + " in the directory");
    }
    const PackedInteger section(help, at + stored.size());
    const PackedInteger offset(help, section.at + section.size);
    return {section, offset, PackedInteger(help, offset.at + offset.size)};
}

void placeTopics(std::string& help, std::string strings, const std::string& folder) {
    if (help.compare(0, 4, "ITSF") != 0 || number(help, 4, 4) != 3)
        throw std::runtime_error("not a help file");
    const std::size_t contents = number(help, 0x58, 8);

    const Entry entry = entryOf(help, "/#STRINGS");
    if (entry.length.value != strings.size()) throw std::runtime_error("these are not the file's strings");
    if (placeStrings(strings, folder) == 0)
        throw std::runtime_error("no context number leads into " + folder);
    entry.offset.put(help, help.size() - contents);
    entry.section.put(help, 0); // the uncompressed one
    help += strings;
    putNumber(help, 0x60 + 8, 8, help.size());

    putNumber(help, 0x10, 4, 0);
    const Entry system = entryOf(help, "/#SYSTEM");
    const std::size_t first = contents + system.offset.value + 4; // behind the version
    constexpr std::uint64_t timeStamp = 10;
    if (system.section.value != 0 || number(help, first, 2) != timeStamp) {
        throw std::runtime_error("no time stamp begins #SYSTEM");
    }
    putNumber(help, first + 4, 4, 0);
}

} // namespace

int main(int count, char** arguments) {
    try {
        if (count != 4) throw std::runtime_error("usage: place_topics HELP.chm STRINGS FOLDER");
        std::string help = readAll(arguments[1]);
        placeTopics(help, readAll(arguments[2]), arguments[3]);
        std::ofstream file(arguments[1], std::ios::binary);
        if (!file.write(help.data(), static_cast<std::streamsize>(help.size())).flush()) {
            throw std::runtime_error("cannot write the help file");
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "place_topics: " << error.what() << '\n';
        return 1;
    }
}
