#include "gallery/gallery.h"

namespace corvelle::gallery {

void showAll(forms::Desktop& desktop, const std::shared_ptr<workspace::Workspace>& ide, const Look& look) {
    showFormatter(desktop, ide, look);
    showIndexer(desktop, ide, look);
    showShared(desktop, look);
}

} // namespace corvelle::gallery
