#pragma once

namespace corvelle::cli {

/// Which help properties a run writes into the designers' files, or that it takes its own out.
enum class PropertyChoice { None, Help, WhatsThis, Both, Remove };

struct PropertySettings {
    PropertyChoice properties = PropertyChoice::None;
    bool whatsThisForms = false;   ///< with both: switch the forms' WhatsThisHelp on
    bool overwriteNumbers = false; ///< replace numbers that stand there
};

} // namespace corvelle::cli
