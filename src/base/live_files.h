#pragma once

#include <filesystem>

// The names of temporary files that are to go when the process is told to end. A signal may come at any
// moment, on any thread: what it calls takes no lock and no memory.
namespace corvelle::base::liveFiles {

/// Remembers the path, before the file is made. The slot; -1 if there is no room for it.
int enter(const std::filesystem::path& path);
/// Forgets the path of the slot.
void leave(int slot);
/// Whether the process is ending: then no new file may be made.
bool areGoing();

/// For the handler of a signal: calls `remove` with each path that is remembered.
void goAll(void (*remove)(const std::filesystem::path::value_type* path));

} // namespace corvelle::base::liveFiles
