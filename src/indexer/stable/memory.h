#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What an index remembers of a project beyond the names and numbers of its `#define` lines. It stands in the
// header file, behind them, in comment lines that begin "// @": help compilers pass over them.
namespace corvelle::indexer::stable {

/// Where a control stands in its project: elements of a control array have an index too.
struct ControlPlace {
    std::string designer;
    std::string control; ///< empty: the designer itself
    std::optional<std::int32_t> index{};
};

bool operator==(const ControlPlace& a, const ControlPlace& b);

/// "cmdNav(2)", of no array "cmdOK"; of the designer itself "-".
std::string nameInMemory(const ControlPlace& place);

/// What an index has made of a control.
enum class Standing {
    Indexed,
    OnDefault, ///< it shows the default topic
    Deleted,   ///< by the author: it stays out
};

/// A control that the project had when the index was made.
struct RememberedControl {
    ControlPlace place;
    std::string className; ///< without its library
    std::string container; ///< as nameInMemory; empty: the designer itself
    std::string idhName;   ///< its own, which it keeps in every standing; the default one if it never had one
    std::int32_t number = 0;
    Standing standing = Standing::Indexed;
    bool isLeftOut = false; ///< by the options of the last run: its name and number wait for it
    bool isAdopted = false; ///< the designer's file had the number first
    /// The name of a control that went when this one came: perhaps it was only renamed. Empty: none, or that
    /// is settled.
    std::string perhapsFrom{};
};

/// A name with its number that nobody gets any more.
struct RetiredNumber {
    std::string idhName;
    std::int32_t number = 0;
    bool isAdopted = false;
};

/// A property of a control or a designer that we have written into its file.
struct WrittenProperty {
    ControlPlace place;
    std::string property;
    std::int32_t value = 0;
};

struct Memory {
    std::vector<RememberedControl> controls; ///< those of a designer together, in the order of its file
    std::vector<RetiredNumber> retired;
    std::vector<WrittenProperty> written;
};

bool operator==(const RememberedControl& a, const RememberedControl& b);
bool operator==(const RetiredNumber& a, const RetiredNumber& b);
bool operator==(const WrittenProperty& a, const WrittenProperty& b);
bool operator==(const Memory& a, const Memory& b);

/// Appends the lines of a memory, with their line ends.
void appendLines(std::string& lines, const Memory& memory);

/// Whether a header's line is one of a memory's.
bool isMemoryLine(std::string_view line);

/// What is wrong with a header: the line, from 1, and why.
struct HeaderFault {
    std::uint32_t line = 0;
    std::string reason;
};

/// The memory in the bytes of a header; an empty one where it has none. Its other lines are passed over. What
/// is no memory, whole and as it was written, is a fault.
struct ReadMemory {
    std::optional<Memory> memory{}; ///< none: there are no lines of one, or there is a fault
    std::optional<HeaderFault> fault{};
};
ReadMemory readMemory(std::string_view header);

} // namespace corvelle::indexer::stable
