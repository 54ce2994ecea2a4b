#include "workbench/model/code_objects.h"

#include "workbench/model/component_objects.h"
#include "workbench/model/vbe_object.h"

namespace corvelle::workbench {

namespace {

using com::Arguments;
using com::Variant;

using Code = CodeModuleObject;
using Pane = CodePaneObject;
using Panes = CodePanesObject;

std::shared_ptr<workspace::Component> paneAt(Serving& serving, std::int32_t number) {
    const auto host = serving.host();
    const auto panes = host->codePanes();
    if (number < 1 || number > static_cast<std::int32_t>(panes.size()))
        throw base::RunTimeError(base::ErrorNumber::SubscriptOutOfRange);
    return {serving.workspace(), panes[static_cast<std::size_t>(number - 1)]};
}

constexpr com::Member<Code> code[] = {
    {L"Parent", 0x60020000, com::propertyGet, 0, 0,
     [](Code& self, const Arguments&) -> Variant {
         return self.serving().object<VBComponentObject>(self.modelPointer());
     }},
    {L"VBE", 0x60020001, com::propertyGet, 0, 0,
     [](Code& self, const Arguments&) -> Variant { return self.serving().object<VBEObject>(); }},
    {L"Name", 0, com::propertyGet, 0, 0,
     [](Code& self, const Arguments&) -> Variant { return self.model().Name(); }},
    {L"Name", 0, com::propertyPut, 1, 1,
     [](Code& self, const Arguments& arguments) -> Variant {
         self.model().setName(arguments.text(0));
         return {};
     }},
    {L"Lines", 0x60020006, com::propertyGet, 2, 2,
     [](Code& self, const Arguments& arguments) -> Variant {
         return self.model().CodeModule()->Lines(arguments.number(0), arguments.number(1));
     }},
    {L"CountOfLines", 0x60020007, com::propertyGet, 0, 0,
     [](Code& self, const Arguments&) -> Variant { return self.model().CodeModule()->CountOfLines(); }},
    {L"InsertLines", 0x60020008, com::method, 2, 2,
     [](Code& self, const Arguments& arguments) -> Variant {
         self.model().CodeModule()->InsertLines(arguments.number(0), arguments.text(1));
         return {};
     }},
    {L"DeleteLines", 0x60020009, com::method, 1, 2,
     [](Code& self, const Arguments& arguments) -> Variant {
         const auto count = arguments.has(1) ? arguments.number(1) : 1;
         self.model().CodeModule()->DeleteLines(arguments.number(0), count);
         return {};
     }},
    {L"ReplaceLine", 0x6002000A, com::method, 2, 2,
     [](Code& self, const Arguments& arguments) -> Variant {
         const auto line = arguments.number(0);
         const auto text = arguments.text(1);
         self.model().CodeModule()->DeleteLines(line, 1);
         self.model().CodeModule()->InsertLines(line, text);
         return {};
     }},
    {L"CodePane", 0x60020012, com::propertyGet, 0, 0,
     [](Code& self, const Arguments&) -> Variant {
         return self.serving().object<CodePaneObject>(self.modelPointer());
     }},
};

constexpr com::Member<Pane> pane[] = {
    {L"Collection", 0x60020000, com::propertyGet, 0, 0,
     [](Pane& self, const Arguments&) -> Variant { return self.serving().object<CodePanesObject>(); }},
    {L"VBE", 0x60020001, com::propertyGet, 0, 0,
     [](Pane& self, const Arguments&) -> Variant { return self.serving().object<VBEObject>(); }},
    {L"CodeModule", 0x60020008, com::propertyGet, 0, 0,
     [](Pane& self, const Arguments&) -> Variant {
         return self.serving().object<CodeModuleObject>(self.modelPointer());
     }},
    {L"Show", 0x60020009, com::method, 0, 0,
     [](Pane& self, const Arguments&) -> Variant {
         self.serving().host()->showCode(self.model());
         return {};
     }},
};

constexpr com::Member<Panes> panes[] = {
    {L"Item", 0, com::method, 1, 1,
     [](Panes& self, const Arguments& arguments) -> Variant {
         return self.serving().object<CodePaneObject>(paneAt(self.serving(), arguments.number(0)));
     }},
    {L"Count", 0x60020003, com::propertyGet, 0, 0,
     [](Panes& self, const Arguments&) -> Variant {
         return static_cast<std::int32_t>(self.serving().host()->codePanes().size());
     }},
    {L"Current", 0x60020005, com::propertyGet, 0, 0,
     [](Panes& self, const Arguments&) -> Variant { return activeCodePane(self.serving()); }},
};

} // namespace

com::Ptr<CodePaneObject> activeCodePane(Serving& serving) {
    const auto ide = serving.host()->workspace();
    const auto active = ide ? ide->ActiveCodePane() : nullptr;
    if (!active) return {};
    return serving.object<CodePaneObject>(
        std::static_pointer_cast<workspace::Component>(active->CodeModule()->Parent()));
}

Members<CodeModuleObject> CodeModuleObject::members() {
    return code;
}

Members<CodePaneObject> CodePaneObject::members() {
    return pane;
}

Members<CodePanesObject> CodePanesObject::members() {
    return panes;
}

} // namespace corvelle::workbench
