#pragma once

#include "forms/desktop.h"
#include "forms/form.h"
#include "ide/workspace/workspace.h"

#include <functional>
#include <memory>
#include <string>

namespace corvelle::gallery {

/// What shows a window that is to be looked at: its picture's name and the form, which is closed afterwards.
using Look = std::function<void(const std::string& name, forms::Form& form)>;

/// Shows every window of the package one after the other, with what a user of the project would see in it.
void showAll(forms::Desktop& desktop, const std::shared_ptr<workspace::Workspace>& ide, const Look& look);

// The windows of a subsystem each.
void showFormatter(forms::Desktop& desktop, const std::shared_ptr<workspace::Workspace>& ide,
                   const Look& look);
void showIndexer(forms::Desktop& desktop, const std::shared_ptr<workspace::Workspace>& ide, const Look& look);
void showShared(forms::Desktop& desktop, const Look& look);

} // namespace corvelle::gallery
