#include "indexer/confirm_update.h"

#include <string>

namespace corvelle::indexer {

bool ConfirmUpdate(std::string_view heading, const std::vector<std::string_view>& paths,
                   const MsgBox& msgBox) {
    std::string text(heading);
    for (const auto path : paths) text.append("\r").append(path);
    text += "\rDo you wish to continue ?";
    const int flags = forms::box::yesNo | forms::box::question;
    return msgBox({text, flags, "Update files..?"}) == forms::answer::yes;
}

} // namespace corvelle::indexer
