#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvelle::workspace {

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
