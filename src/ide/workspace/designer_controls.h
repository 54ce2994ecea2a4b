#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// What a designer section says of one block; the views are into the file's bytes.
struct DesignerControl {
    static constexpr std::size_t noContainer = static_cast<std::size_t>(-1);

    std::string_view library, className, name;
    std::size_t container = noContainer; ///< number of the control it stands in; of the designer none
    std::optional<std::int32_t> index{};
    std::int32_t helpContextID = 0, whatsThisHelpID = 0; ///< 0: it has none
    std::string_view caption; ///< as it stands in the file, quotes included; empty: it has none
    bool hasWidth = false;    ///< controls that are not seen at run time have none
    std::uint32_t line = 0;   ///< of its Begin, from 1
};

/// A designer itself and its controls, which are those that ModuleFile has, in the same order.
struct DesignerControls {
    DesignerControl designer;
    std::vector<DesignerControl> controls;
};

/// Reads the designer section of a module file's header, which has one. It takes any section that ModuleFile
/// takes, in one pass; what lines it does not know say is passed over. Numbers that are none or do not fit
/// count as 0, an index as none.
DesignerControls readDesignerControls(std::string_view header);

} // namespace corvelle::workspace
