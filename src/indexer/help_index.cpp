#include "indexer/help_index.h"

namespace corvelle::indexer {

void HelpIndex::clear() {
    designers.clear();
    unreadTextFiles.clear();
    isUnread = false;
    entries.assign(1, IndexEntry());
    entries.front().IDHName = defaultIDH;
}

} // namespace corvelle::indexer
