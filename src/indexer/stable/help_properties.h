#pragma once

#include <string_view>

namespace corvelle::indexer::stable {

/// Which of the two help properties the controls of a class have.
struct HelpProperties {
    bool helpContextID = true;
    bool whatsThisHelpID = true;
    bool isVerified = false; ///< false: it is what controls of its kind have, and nobody has looked
};

/// Those of a class, letter case aside: "VB", "Label". Of an unknown class those of every visible control.
HelpProperties helpPropertiesOf(std::string_view library, std::string_view className);

} // namespace corvelle::indexer::stable
