#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer {

/// The name of the default topic.
inline constexpr std::string_view defaultIDH = "IDH_AAAA";
/// Its number; the controls' numbers follow it.
inline constexpr std::int32_t defaultHelpContextID = 1000;

/// One control of an index.
struct IndexEntry {
    std::int32_t DsrIndex = 0; ///< number of its designer, from 1; 0 for the default entry
    std::string IDHName;       ///< empty: deleted from the index; "IDH_AAAA": shows the default text
    std::string CtlName;
    std::string CtlClass;
    std::string HelpText;
};

/// The controls of a project that have help topics.
struct HelpIndex {
    HelpIndex() { clear(); }

    /// Leaves the default entry, without a text, and no file that is not to be replaced.
    void clear();

    std::vector<std::string> designers; ///< designer number 1 stands first
    std::vector<IndexEntry> entries;    ///< entry 0 is the default entry, whose text others may share
    /// Paths of the text files that are there but could not be read as text: replacing one would lose its
    /// texts.
    std::vector<std::string> unreadTextFiles;

    /// The configuration file could not be read, so the entries are not all there: no file may be replaced by
    /// them.
    bool isUnread = false;

    /// Number of the last entry.
    std::size_t count() const { return entries.size() - 1; }
};

} // namespace corvelle::indexer
