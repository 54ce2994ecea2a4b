#include "workbench/model/command_bar_objects.h"

#include <algorithm>

namespace corvelle::workbench {

namespace {

using base::ErrorNumber;
using base::RunTimeError;
using com::Arguments;
using com::Variant;

using Bars = CommandBarsObject;
using Bar = CommandBarObject;
using Controls = CommandBarControlsObject;
using Control = CommandBarControlObject;

constexpr std::int32_t button = 1;        // msoControlButton
constexpr std::int32_t customCommand = 1; // the Id of a command that is no built-in one

std::shared_ptr<workspace::Menu> menuAt(Bars& self, const Arguments& arguments) {
    auto& menus = self.serving().host()->menus();
    if (!arguments.isText(0)) {
        if (arguments.number(0) != 1) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
        return menus.addIns().shared_from_this();
    }
    return std::static_pointer_cast<workspace::Menu>(menus.Item(arguments.text(0)));
}

std::size_t placeOf(std::int32_t number, std::size_t places) {
    if (number < 1 || static_cast<std::size_t>(number) > places)
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return static_cast<std::size_t>(number - 1);
}

enum AddArgument { type, id, parameter, before, temporary };

std::shared_ptr<workspace::MenuCommand> addTo(workspace::Menu& menu, const Arguments& arguments) {
    if (arguments.has(type) && arguments.number(type) != button)
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    if (arguments.has(id) && arguments.number(id) != customCommand)
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    const auto count = menu.commands().size();
    return menu.insert(arguments.has(before) ? placeOf(arguments.number(before), count + 1) : count);
}

std::int32_t indexOf(const std::shared_ptr<workspace::MenuCommand>& command) {
    const auto menu = command->menu();
    if (!menu) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    const auto& all = menu->commands();
    return static_cast<std::int32_t>(std::find(all.begin(), all.end(), command) - all.begin()) + 1;
}

constexpr com::Member<Bars> bars[] = {
    {L"Item", 0, com::propertyGet, 1, 1,
     [](Bars& self, const Arguments& arguments) -> Variant {
         return self.serving().object<CommandBarObject>(menuAt(self, arguments));
     }},
    {L"Count", 0x60030001, com::propertyGet, 0, 0,
     [](Bars&, const Arguments&) -> Variant { return std::int32_t{1}; }},
};

constexpr com::Member<Bar> bar[] = {
    {L"Controls", 0x60040003, com::propertyGet, 0, 0,
     [](Bar& self, const Arguments&) -> Variant {
         return self.serving().object<CommandBarControlsObject>(self.modelPointer());
     }},
    {L"Name", 0x6004000F, com::propertyGet, 0, 0,
     [](Bar& self, const Arguments&) -> Variant { return self.model().name(); }},
    {L"Visible", 0x6004001D, com::propertyGet, 0, 0, [](Bar&, const Arguments&) -> Variant { return true; }},
};

constexpr com::Member<Controls> controls[] = {
    {L"Item", 0, com::propertyGet, 1, 1,
     [](Controls& self, const Arguments& arguments) -> Variant {
         const auto& all = self.model().commands();
         return self.serving().object<CommandBarControlObject>(all[placeOf(arguments.number(0), all.size())]);
     }},
    {L"Add", 0x60030000, com::method, 0, 5,
     [](Controls& self, const Arguments& arguments) -> Variant {
         return self.serving().object<CommandBarControlObject>(addTo(self.model(), arguments));
     }},
    {L"Count", 0x60030001, com::propertyGet, 0, 0,
     [](Controls& self, const Arguments&) -> Variant {
         return static_cast<std::int32_t>(self.model().commands().size());
     }},
    {L"Parent", 0x60030004, com::propertyGet, 0, 0,
     [](Controls& self, const Arguments&) -> Variant {
         return self.serving().object<CommandBarObject>(self.modelPointer());
     }},
};

constexpr com::Member<Control> control[] = {
    {L"Caption", 0x60040003, com::propertyGet, 0, 0,
     [](Control& self, const Arguments&) -> Variant { return self.model().caption(); }},
    {L"Caption", 0x60040003, com::propertyPut, 1, 1,
     [](Control& self, const Arguments& arguments) -> Variant {
         self.model().setCaption(arguments.text(0));
         return {};
     }},
    {L"Delete", 0x60040007, com::method, 0, 1,
     [](Control& self, const Arguments&) -> Variant {
         self.model().Delete();
         return {};
     }},
    {L"Enabled", 0x6004000A, com::propertyGet, 0, 0,
     [](Control& self, const Arguments&) -> Variant { return self.model().isEnabled(); }},
    {L"Enabled", 0x6004000A, com::propertyPut, 1, 1,
     [](Control& self, const Arguments& arguments) -> Variant {
         self.model().setEnabled(arguments.boolean(0));
         return {};
     }},
    {L"Execute", 0x6004000C, com::method, 0, 0,
     [](Control& self, const Arguments&) -> Variant {
         self.model().Execute();
         return {};
     }},
    {L"Id", 0x60040014, com::propertyGet, 0, 0,
     [](Control&, const Arguments&) -> Variant { return customCommand; }},
    {L"Index", 0x60040015, com::propertyGet, 0, 0,
     [](Control& self, const Arguments&) -> Variant { return indexOf(self.modelPointer()); }},
    {L"Parent", 0x6004001D, com::propertyGet, 0, 0,
     [](Control& self, const Arguments&) -> Variant {
         return self.serving().object<CommandBarObject>(self.model().menu());
     }},
    {L"Tag", 0x60040023, com::propertyGet, 0, 0,
     [](Control& self, const Arguments&) -> Variant { return self.model().tag(); }},
    {L"Tag", 0x60040023, com::propertyPut, 1, 1,
     [](Control& self, const Arguments& arguments) -> Variant {
         self.model().setTag(arguments.text(0));
         return {};
     }},
    {L"Type", 0x60040028, com::propertyGet, 0, 0,
     [](Control&, const Arguments&) -> Variant { return button; }},
    {L"Visible", 0x60040029, com::propertyGet, 0, 0,
     [](Control& self, const Arguments&) -> Variant { return self.model().isVisible(); }},
    {L"Visible", 0x60040029, com::propertyPut, 1, 1,
     [](Control& self, const Arguments& arguments) -> Variant {
         self.model().setVisible(arguments.boolean(0));
         return {};
     }},
};

} // namespace

Members<CommandBarsObject> CommandBarsObject::members() {
    return bars;
}

Members<CommandBarObject> CommandBarObject::members() {
    return bar;
}

Members<CommandBarControlsObject> CommandBarControlsObject::members() {
    return controls;
}

Members<CommandBarControlObject> CommandBarControlObject::members() {
    return control;
}

} // namespace corvelle::workbench
