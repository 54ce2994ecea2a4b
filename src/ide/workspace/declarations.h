#pragma once

#include "base/byte_search.h"
#include "base/text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvelle::workspace {

/// A line that the IDE hides: `Attribute Member.VB_Description = "text"`, `Attribute VB_Name = "Module1"`.
struct AttributeLine {
    bool found = false;
    std::string_view member; ///< the first of several parts of the name, without brackets; else empty
    std::string_view name;   ///< the last part, without brackets
    std::string_view value;  ///< what follows the equals sign, blanks included
};

/// Reads a line without its line end; `found` is false for a line that is shown.
AttributeLine readAttributeLine(std::string_view line);

/// Whether the line's first character behind blanks lets it be one that the IDE hides. Rules out nearly every
/// line at once.
inline bool mayBeAttributeLine(std::string_view line) {
    const std::size_t blanks = base::pastBlanks(line, 0);
    return blanks < line.size() && (line[blanks] == 'A' || line[blanks] == 'a');
}

/// Finds where the members of a module are declared: procedures, properties, events, external procedures,
/// enumerations, types, and the constants and variables outside procedures.
class Declarations {
  public:
    /// Reads the module's next code line, line 0 first.
    void read(std::string_view line);

    /// The lines on which the declarations of that name end, letter case aside: one for a variable, several
    /// for a property with several accessors. Empty if the member does not exist.
    const std::vector<std::uint32_t>& endsOf(std::string_view name) const;

  private:
    void readStatements(std::string_view text);
    void readStatement(std::string_view statement);
    bool endsBlock(std::string_view word) const;
    /// A declaration outside blocks: its first word behind modifiers, what follows it, and the list of names
    /// if it should declare variables.
    void readDeclaration(std::string_view word, std::string_view rest, std::string_view variables);
    void readNames(std::string_view list);
    void add(std::string_view name);

    std::unordered_map<std::string, std::vector<std::uint32_t>> ends_;
    std::uint32_t lines_ = 0;
    std::string begun_; // the lines before this one that are continued
    /// What must end before a declaration of the module's own can come.
    enum class Block { None, Procedure, Type, Enum } block_ = Block::None;
};

} // namespace corvelle::workspace
