#include "ide/automation/code_adapters.h"

#include "ide/automation/adapt.h"
#include "ide/automation/component_adapters.h"

namespace corvelle::automation {

std::string CodeModuleAdapter::Name() {
    return com::textOf(object_.get(L"Name"));
}

std::shared_ptr<ide::VBComponent> CodeModuleAdapter::Parent() {
    return adapt<VBComponentAdapter>(object_.get(L"Parent"));
}

std::int32_t CodeModuleAdapter::CountOfLines() {
    return com::longOf(object_.get(L"CountOfLines"));
}

std::string CodeModuleAdapter::Lines(std::int32_t start, std::int32_t count) {
    return com::textOf(object_.get(L"Lines", start, count));
}

void CodeModuleAdapter::DeleteLines(std::int32_t start, std::int32_t count) {
    object_.call(L"DeleteLines", start, count);
}

void CodeModuleAdapter::InsertLines(std::int32_t line, std::string_view text) {
    object_.call(L"InsertLines", line, text);
}

std::shared_ptr<ide::CodeModule> CodePaneAdapter::CodeModule() {
    return adapt<CodeModuleAdapter>(object_.get(L"CodeModule"));
}

} // namespace corvelle::automation
