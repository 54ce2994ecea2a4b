#pragma once

#include "forms/message_box.h"

#include <functional>
#include <string>

namespace corvelle::indexer {

/// What a message box is to say.
struct Message {
    std::string text;
    int flags = forms::box::okOnly; ///< of namespace forms::box
    std::string title{};            ///< empty: the application's own
};

/// Shows a message; the user's answer, of namespace forms::answer.
using MsgBox = std::function<int(const Message&)>;

} // namespace corvelle::indexer
