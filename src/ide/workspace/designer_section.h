#pragma once

#include "ide/workspace/module_file.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// A property in a block: a line `Name = value`, or a group from its BeginProperty to its EndProperty.
struct DesignerProperty {
    std::string_view name;
    std::string_view value;       ///< with what may follow it on the line, a comment; empty for a group
    std::string_view indentation; ///< of its first line
    bool isGroup = false;
    std::size_t begin = 0, end = 0; ///< the bytes of its lines, the last one's line end included
    std::uint32_t line = 0;         ///< 1-based
};

/// A block of a designer section, by views of the file.
struct DesignerBlock {
    std::string_view className; ///< with its library: "VB.Label"
    std::string_view name;
    std::optional<std::int32_t> index; ///< in a control array
    std::size_t container = 0;         ///< the number of the block around it; of the outermost one its own
    std::uint32_t line = 0;            ///< of its Begin
    std::string_view indentation;      ///< of its Begin
    std::string_view lineEnd;          ///< of its Begin
    std::size_t bodyBegin = 0;         ///< where the line behind its Begin begins
    std::vector<DesignerProperty> properties; ///< its own, without those of the blocks inside
    std::size_t headProperties = 0;           ///< how many stand before the first block inside

    /// The first property of that name, letter case aside; null if there is none.
    const DesignerProperty* find(std::string_view property) const;
    /// How many properties have that name.
    std::size_t count(std::string_view property) const;
};

/// The designer section has a line that no IDE writes there.
class StrangeDesigner : public std::runtime_error {
  public:
    explicit StrangeDesigner(std::uint32_t line);
    /// Its 1-based number; 0 where the section is missing.
    std::uint32_t line() const { return line_; }

  private:
    std::uint32_t line_;
};

/// The blocks of a file's designer section with all their properties, the outermost one first, each before
/// those inside it. The file must live on. Throws StrangeDesigner for a section that is not made of blocks,
/// properties and groups alone.
std::vector<DesignerBlock> readDesignerSection(const ModuleFile& file);

/// The number that a property's value begins with, decimal or `&H` hexadecimal; none if it is no whole number
/// of 32 bits.
std::optional<std::int32_t> numberOf(std::string_view value);

/// How many of the block's first properties its container gives it, by the order that an IDE writes them in:
/// up to Width. 0 for a block of a built-in class, which has none of them apart, and for a control that is
/// invisible at run time.
std::size_t containersProperties(const DesignerBlock& block);

/// Whether the class stands in the IDE's own library.
bool isBuiltIn(std::string_view className);

} // namespace corvelle::workspace
