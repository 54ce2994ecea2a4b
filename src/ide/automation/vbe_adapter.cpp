#include "ide/automation/vbe_adapter.h"

#include "ide/automation/adapt.h"
#include "ide/automation/code_adapters.h"
#include "ide/automation/component_adapters.h"
#include "ide/automation/menu_adapters.h"

namespace corvelle::automation {

std::shared_ptr<ide::VBProject> VBEAdapter::ActiveVBProject() {
    return adapt<VBProjectAdapter>(object_.get(L"ActiveVBProject"));
}

std::shared_ptr<ide::CodePane> VBEAdapter::ActiveCodePane() {
    return adapt<CodePaneAdapter>(object_.get(L"ActiveCodePane"));
}

std::shared_ptr<ide::CommandBars> VBEAdapter::CommandBars() {
    return adapt<CommandBarsAdapter>(object_.get(L"CommandBars"));
}

std::shared_ptr<ide::Events> VBEAdapter::Events() {
    return adapt<EventsAdapter>(object_.get(L"Events"));
}

} // namespace corvelle::automation
