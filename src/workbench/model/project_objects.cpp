#include "workbench/model/project_objects.h"

#include "base/text.h"
#include "workbench/model/component_objects.h"
#include "workbench/model/vbe_object.h"

namespace corvelle::workbench {

namespace {

using com::Arguments;
using com::Variant;
using workspace::Component;
using workspace::Project;

using Projects = VBProjectsObject;
using TheProject = VBProjectObject;
using Components = VBComponentsObject;

std::int32_t projectCount(Serving& serving) {
    const auto ide = serving.host()->workspace();
    return ide ? static_cast<std::int32_t>(ide->projects().size()) : 0;
}

std::shared_ptr<Project> projectAt(Serving& serving, const Arguments& arguments) {
    if (const auto ide = serving.host()->workspace()) {
        std::int32_t number = 0;
        for (const auto& project : ide->projects()) {
            ++number;
            if (arguments.isText(0) ? base::equalIgnoringCase(project->Name(), arguments.text(0))
                                    : number == arguments.number(0))
                return {ide, project.get()};
        }
    }
    throw base::RunTimeError(base::ErrorNumber::SubscriptOutOfRange);
}

constexpr com::Member<Projects> projects[] = {
    {L"Item", 0, com::method, 1, 1,
     [](Projects& self, const Arguments& arguments) -> Variant {
         return self.serving().object<VBProjectObject>(projectAt(self.serving(), arguments));
     }},
    {L"Count", 10, com::propertyGet, 0, 0,
     [](Projects& self, const Arguments&) -> Variant { return projectCount(self.serving()); }},
    {L"VBE", 20, com::propertyGet, 0, 0,
     [](Projects& self, const Arguments&) -> Variant { return self.serving().object<VBEObject>(); }},
};

constexpr com::Member<TheProject> project[] = {
    {L"Name", 0, com::propertyGet, 0, 0,
     [](TheProject& self, const Arguments&) -> Variant { return self.model().Name(); }},
    {L"FileName", 109, com::propertyGet, 0, 0,
     [](TheProject& self, const Arguments&) -> Variant { return self.model().FileName(); }},
    {L"IsDirty", 110, com::propertyGet, 0, 0,
     [](TheProject& self, const Arguments&) -> Variant { return self.model().IsDirty(); }},
    {L"VBE", 122, com::propertyGet, 0, 0,
     [](TheProject& self, const Arguments&) -> Variant { return self.serving().object<VBEObject>(); }},
    {L"Collection", 123, com::propertyGet, 0, 0,
     [](TheProject& self, const Arguments&) -> Variant { return self.serving().object<VBProjectsObject>(); }},
    {L"Type", 129, com::propertyGet, 0, 0,
     [](TheProject& self, const Arguments&) -> Variant {
         return static_cast<std::int32_t>(self.model().Type());
     }},
    {L"Saved", 133, com::propertyGet, 0, 0,
     [](TheProject& self, const Arguments&) -> Variant { return !self.model().IsDirty(); }},
    {L"VBComponents", 135, com::propertyGet, 0, 0,
     [](TheProject& self, const Arguments&) -> Variant {
         return self.serving().object<VBComponentsObject>(self.modelPointer());
     }},
};

Variant serveComponent(Components& self, const std::shared_ptr<ide::VBComponent>& component) {
    return self.serving().object<VBComponentObject>(std::static_pointer_cast<Component>(component));
}

constexpr com::Member<Components> components[] = {
    {L"Item", 0, com::method, 1, 1,
     [](Components& self, const Arguments& arguments) -> Variant {
         const auto all = self.model().VBComponents();
         return serveComponent(self, arguments.isText(0) ? all->Item(arguments.text(0))
                                                         : all->Item(arguments.number(0)));
     }},
    {L"Parent", 2, com::propertyGet, 0, 0,
     [](Components& self, const Arguments&) -> Variant {
         return self.serving().object<VBProjectObject>(self.modelPointer());
     }},
    {L"Count", 10, com::propertyGet, 0, 0,
     [](Components& self, const Arguments&) -> Variant { return self.model().VBComponents()->Count(); }},
    {L"Add", 12, com::method, 1, 1,
     [](Components& self, const Arguments& arguments) -> Variant {
         return serveComponent(
             self, self.model().VBComponents()->Add(static_cast<ide::ComponentType>(arguments.number(0))));
     }},
    {L"VBE", 20, com::propertyGet, 0, 0,
     [](Components& self, const Arguments&) -> Variant { return self.serving().object<VBEObject>(); }},
};

} // namespace

Members<VBProjectsObject> VBProjectsObject::members() {
    return projects;
}

Members<VBProjectObject> VBProjectObject::members() {
    return project;
}

Members<VBComponentsObject> VBComponentsObject::members() {
    return components;
}

} // namespace corvelle::workbench
