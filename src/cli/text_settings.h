#pragma once

#include "base/folder_lock.h"

#include <chrono>
#include <string>

namespace corvelle::cli {

enum class TextAction { List, Set, Default, Delete };

/// What `corvelle text` was asked to do; texts are as given.
struct TextSettings {
    std::string project;
    TextAction action = TextAction::List;
    std::string designer; ///< but for List
    std::string control;  ///< NAME, or NAME#2 for the second one of that name; but for List
    std::string text;     ///< for Set
    /// How long an edit waits for other runs on the same index.
    std::chrono::milliseconds longestWait = base::FolderLock::usualWait;
};

} // namespace corvelle::cli
