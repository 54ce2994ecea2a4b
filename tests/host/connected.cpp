#include "host/connected.h"

#include "forms/form.h"

namespace corvelle::host::test {

Connected::Connected() {
    desktop.onUnexpected = [](const std::string& what) { ADD_FAILURE() << what; };
    desktop.settings().save("Trellis", "Indexer", "ExcludeList_Path",
                            folder.write("exclude.lst", "\r\n").string());
    ide->activate(ide->project->add("Account", ide::ComponentType::StdModule, {"Sub Main()", "End Sub"}));
    ide->calls->forget();
}

Connected::~Connected() {
    EXPECT_TRUE(desktop.scriptIsDone());
}

void Connected::connect(std::int32_t mode) {
    addIn->IDTExtensibility_OnConnection(ide, mode);
}

bool Connected::clickCommand() {
    return !ide->sources.empty() && ide->sources.back()->click();
}

std::vector<std::string> Connected::windows() const {
    std::vector<std::string> names;
    for (const forms::Form* form : desktop.windows()) names.push_back(form->name());
    return names;
}

std::string Connected::autoShow() {
    return desktop.settings().get("Corvelle", "Settings", "AutoShow", "none");
}

} // namespace corvelle::host::test
