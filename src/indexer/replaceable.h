#pragma once

#include "ide/component.h"
#include "indexer/message.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Whether a file may be replaced by one of the indexer's: it is empty, or holds nothing but what the indexer
// writes there itself. The functions look at the file's bytes; lines may end in any way.
namespace corvelle::indexer {

/// A header file: the default topic's line first, and no line but those of our names with their numbers.
bool isHeaderOfOurs(std::string_view bytes);
/// A configuration file: nothing but lines of designers and of controls.
bool isConfigurationOfOurs(std::string_view bytes);
/// A text pop-up file: its first topic is the default one. What its topics say is the user's.
bool isTextFileOfOurs(std::string_view bytes);
/// The mapping module of that name: nothing but constants and loading procedures.
bool isMappingModuleOfOurs(std::string_view bytes, std::string_view name);
/// A report, by its first line.
bool isReportOfOurs(std::string_view bytes);
/// An indexer project file, by the key of its first line.
bool isProjectFileOfOurs(std::string_view bytes);

/// What is said when one of the paths, of which some may be empty, is that of the project's own file, of one
/// of its components' or of such a component's binary part: nothing of an index may take its place. Nothing
/// where no path is. What the IDE does not tell is passed over.
std::optional<Message> whatForbidsPaths(const std::shared_ptr<ide::VBProject>& project,
                                        const std::vector<std::string>& paths);

} // namespace corvelle::indexer
