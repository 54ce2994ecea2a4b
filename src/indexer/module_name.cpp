#include "indexer/module_name.h"

#include "base/text.h"
#include "ide/required.h"

namespace corvelle::indexer {

bool validModule(std::string& mName, ide::VBProject& project) {
    if (!mName.empty() && mName[0] >= '0' && mName[0] <= '9') return false;
    mName = base::trimSpaces(mName);
    if (mName.find_first_of(" &-+*/%\\") != std::string::npos) return false;
    const auto components = project.VBComponents();
    const auto count = ide::required(components).Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        if (base::equalIgnoringCase(ide::required(components->Item(i)).Name(), mName)) return false;
    }
    return true;
}

Message invalidModuleName(const std::string& mName) {
    return {"The module name '" + mName +
                "' is invalid. \rEither it is a invalid VB Name or a module with same name \r"
                "already exists in the current project.",
            forms::box::exclamation};
}

} // namespace corvelle::indexer
