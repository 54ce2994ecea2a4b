#pragma once

#include "ide/vb_project.h"
#include "indexer/message.h"

#include <string>

namespace corvelle::indexer {

/// Whether a module of that name can be added to the project. Trims the name unless it begins with a digit;
/// the test for the digit comes first. An empty name passes. Only ASCII letters have no letter case here: a
/// name that differs from another in the case of an accented letter passes, and the IDE refuses it.
bool validModule(std::string& mName, ide::VBProject& project);

/// What is said of a name that is not valid.
Message invalidModuleName(const std::string& mName);

} // namespace corvelle::indexer
