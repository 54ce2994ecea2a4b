#pragma once

#include "ide/vb_project.h"
#include "indexer/message.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvelle::indexer {

/// What is said when one of the paths, of which some may be empty, is that of the project's own file, of one
/// of its components' or of such a component's binary part: nothing of an index may take its place. Nothing
/// where no path is. What the IDE does not tell is passed over.
std::optional<Message> whatForbidsPaths(const std::shared_ptr<ide::VBProject>& project,
                                        const std::vector<std::string>& paths);

} // namespace corvelle::indexer
