#include "workbench/model/component_objects.h"

#include "workbench/model/code_objects.h"
#include "workbench/model/designer_objects.h"
#include "workbench/model/project_objects.h"
#include "workbench/model/vbe_object.h"

namespace corvelle::workbench {

namespace {

using com::Arguments;
using com::Variant;

using TheComponent = VBComponentObject;
using TheWindow = DesignerWindowObject;

// Its project's components; Nothing where the project is not open any more.
com::Ptr<VBComponentsObject> collectionOf(TheComponent& self) {
    if (const auto ide = self.serving().host()->workspace()) {
        for (const auto& project : ide->projects()) {
            for (const auto& component : project->components()) {
                if (component.get() == &self.model())
                    return self.serving().object<VBComponentsObject>(
                        std::shared_ptr<workspace::Project>(ide, project.get()));
            }
        }
    }
    return {};
}

constexpr com::Member<TheComponent> component[] = {
    {L"IsDirty", 10, com::propertyGet, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant { return self.model().IsDirty(); }},
    {L"FileNames", 11, com::propertyGet, 1, 1,
     [](TheComponent& self, const Arguments& arguments) -> Variant {
         return self.model().FileNames(arguments.number(0));
     }},
    {L"SaveAs", 12, com::method, 1, 1,
     [](TheComponent& self, const Arguments& arguments) -> Variant {
         self.model().SaveAs(arguments.text(0));
         return true;
     }},
    {L"FileCount", 13, com::propertyGet, 0, 0,
     [](TheComponent&, const Arguments&) -> Variant { return std::int32_t{1}; }},
    {L"Name", 48, com::propertyGet, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant { return self.model().Name(); }},
    {L"Name", 48, com::propertyPut, 1, 1,
     [](TheComponent& self, const Arguments& arguments) -> Variant {
         self.model().setName(arguments.text(0));
         return {};
     }},
    {L"Designer", 49, com::propertyGet, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant {
         return self.serving().object<VBFormObject>(self.model().Designer());
     }},
    {L"CodeModule", 50, com::propertyGet, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant {
         return self.serving().object<CodeModuleObject>(self.modelPointer());
     }},
    {L"Type", 51, com::propertyGet, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant {
         return static_cast<std::int32_t>(self.model().Type());
     }},
    {L"VBE", 53, com::propertyGet, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant { return self.serving().object<VBEObject>(); }},
    {L"Collection", 54, com::propertyGet, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant { return collectionOf(self); }},
    {L"HasOpenDesigner", 55, com::propertyGet, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant {
         const auto* window = self.model().designerWindow();
         return window && window->isOpen();
     }},
    {L"DesignerWindow", 57, com::method, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant {
         return self.serving().object<DesignerWindowObject>(
             std::static_pointer_cast<workspace::DesignerWindow>(self.model().DesignerWindow()));
     }},
    {L"Activate", 60, com::method, 0, 0,
     [](TheComponent& self, const Arguments&) -> Variant {
         self.model().Activate();
         return {};
     }},
};

constexpr com::Member<TheWindow> window[] = {
    {L"Close", 99, com::method, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant {
         self.model().Close();
         return {};
     }},
    {L"Caption", 100, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant { return self.model().Caption(); }},
    {L"Visible", 106, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant { return self.model().isVisible(); }},
    {L"Visible", 106, com::propertyPut, 1, 1,
     [](TheWindow& self, const Arguments& arguments) -> Variant {
         self.model().setVisible(arguments.boolean(0));
         return {};
     }},
    {L"SetFocus", 111, com::method, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant {
         self.model().SetFocus();
         return {};
     }},
    {L"Type", 112, com::propertyGet, 0, 0,
     [](TheWindow&, const Arguments&) -> Variant { return std::int32_t{1}; }}, // a designer
};

} // namespace

Members<VBComponentObject> VBComponentObject::members() {
    return component;
}

Members<DesignerWindowObject> DesignerWindowObject::members() {
    return window;
}

} // namespace corvelle::workbench
