#include "workbench/model/vbe_object.h"

#include "workbench/model/code_objects.h"
#include "workbench/model/command_bar_objects.h"
#include "workbench/model/component_objects.h"
#include "workbench/model/event_objects.h"
#include "workbench/model/main_window_object.h"
#include "workbench/model/project_objects.h"

#include <string_view>

namespace corvelle::workbench {

com::Ptr<IDispatch> serveVBE(const std::weak_ptr<WorkbenchHost>& host) {
    return std::make_shared<Serving>(host)->object<VBEObject>();
}

namespace {

using com::Arguments;
using com::Variant;

com::Bstr programPath() {
    wchar_t path[MAX_PATH];
    const auto size = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return com::Bstr(std::wstring_view(path, size));
}

std::shared_ptr<workspace::Component> partOf(const std::shared_ptr<workspace::Workspace>& whole,
                                             workspace::Component* component) {
    return component ? std::shared_ptr<workspace::Component>(whole, component) : nullptr;
}

template <class Server>
Server& given(VBEObject& self, const Arguments& arguments) {
    auto* server = self.serving().find<Server>(arguments.object(0).get());
    if (!server) throw com::HresultError(DISP_E_TYPEMISMATCH);
    return *server;
}

constexpr com::Member<VBEObject> table[] = {
    {L"Name", 0, com::propertyGet, 0, 0,
     [](VBEObject&, const Arguments&) -> Variant { return "Corvelle Workbench"; }},
    {L"FullName", 10, com::propertyGet, 0, 0,
     [](VBEObject&, const Arguments&) -> Variant { return programPath(); }},
    {L"Version", 100, com::propertyGet, 0, 0, [](VBEObject&, const Arguments&) -> Variant { return "6.00"; }},
    {L"VBProjects", 107, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant { return self.serving().object<VBProjectsObject>(); }},
    {L"CommandBars", 108, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant { return self.serving().object<CommandBarsObject>(); }},
    {L"CodePanes", 109, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant { return self.serving().object<CodePanesObject>(); }},
    {L"Events", 111, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant { return self.serving().object<EventsObject>(); }},
    {L"Addins", 200, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant { return self.serving().host()->addIns(); }},
    {L"ActiveVBProject", 201, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant {
         const auto ide = self.serving().host()->workspace();
         if (!ide) return com::Ptr<IDispatch>();
         return self.serving().object<VBProjectObject>(
             std::static_pointer_cast<workspace::Project>(ide->ActiveVBProject()));
     }},
    {L"ActiveVBProject", 201, com::propertyPut, 1, 1,
     [](VBEObject& self, const Arguments& arguments) -> Variant {
         self.serving().workspace()->setActiveVBProject(given<VBProjectObject>(self, arguments).model());
         return {};
     }},
    {L"SelectedVBComponent", 202, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant {
         const auto host = self.serving().host();
         return self.serving().object<VBComponentObject>(
             partOf(host->workspace(), host->selectedComponent()));
     }},
    {L"MainWindow", 204, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant { return self.serving().object<MainWindowObject>(); }},
    {L"ActiveCodePane", 206, com::propertyGet, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant { return activeCodePane(self.serving()); }},
    {L"ActiveCodePane", 206, com::propertyPut, 1, 1,
     [](VBEObject& self, const Arguments& arguments) -> Variant {
         self.serving().host()->showCode(given<CodePaneObject>(self, arguments).model());
         return {};
     }},
    {L"Quit", 207, com::method, 0, 0,
     [](VBEObject& self, const Arguments&) -> Variant {
         self.serving().host()->quit();
         return {};
     }},
    {L"DisplayModel", 208, com::propertyGet, 0, 0,
     [](VBEObject&, const Arguments&) -> Variant {
         return std::int32_t{1};
     }}, // windows inside the main window
};

} // namespace

Members<VBEObject> VBEObject::members() {
    return table;
}

} // namespace corvelle::workbench
