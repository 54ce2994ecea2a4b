#pragma once

#include "forms/desktop.h"

#include <string>

namespace corvelle::indexer {

/// Lets the user choose a file to save into; prompts before one is overwritten or made. Empty when cancelled,
/// and on any failure.
std::string ShowFileDialog(const std::string& filter, const std::string& initialFolder,
                           const std::string& initialName, forms::CommonDialog& dialog);

} // namespace corvelle::indexer
