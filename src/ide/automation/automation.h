#pragma once

#include "com/ptr.h"
#include "ide/vbe.h"

#include <memory>
#include <ole2.h>

/// A real IDE behind the IDE's object model: every call goes late-bound to an Automation object. Each object
/// is made anew whenever it is asked for, so that two of them may stand for the same one of the IDE. What the
/// IDE raises comes out as RunTimeError with the IDE's own number and description.
namespace corvelle::automation {

/// The IDE of that object, which it is called through. Nothing for a null pointer.
std::shared_ptr<ide::VBE> vbe(IDispatch* object);
/// A command or a source of clicks that came from elsewhere; Nothing for a null pointer.
std::shared_ptr<ide::CommandBarControl> commandBarControl(IDispatch* object);
/// A source of clicks need not be an object for Automation.
std::shared_ptr<ide::CommandBarEvents> commandBarEvents(IUnknown* object);

/// The IDE's own object; none for Nothing, and for an object that is not of this folder.
com::Ptr<IDispatch> objectOf(const std::shared_ptr<ide::CommandBarControl>& control);
com::Ptr<IUnknown> objectOf(const std::shared_ptr<ide::CommandBarEvents>& events);

} // namespace corvelle::automation
