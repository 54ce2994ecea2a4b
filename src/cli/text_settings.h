#pragma once

#include "base/folder_lock.h"

#include <chrono>
#include <string>

namespace corvelle::cli {

enum class TextAction { List, Set, Default, Delete, Missing, LeftOver, Prune, Export, Import };

/// Whether it is of the one control that the settings name.
constexpr bool isOfOneControl(TextAction action) {
    return action == TextAction::Set || action == TextAction::Default || action == TextAction::Delete;
}

/// Whether it changes the index's files.
constexpr bool writesIndex(TextAction action) {
    return isOfOneControl(action) || action == TextAction::Prune || action == TextAction::Import;
}

/// What `corvelle text` was asked to do; texts are as given.
struct TextSettings {
    std::string project;
    TextAction action = TextAction::List;
    std::string designer; ///< of an action of one control
    std::string control;  ///< NAME, or NAME#2 for the second one of that name; the same
    std::string text;     ///< for Set
    std::string table;    ///< the file, for Export and Import
    bool partial = false; ///< Import takes what it can
    /// How long an edit waits for other runs on the same index.
    std::chrono::milliseconds longestWait = base::FolderLock::usualWait;
};

} // namespace corvelle::cli
