#include "workbench/model/designer_objects.h"

namespace corvelle::workbench {

namespace {

using com::Arguments;
using com::Variant;

constexpr com::Member<VBFormObject> form[] = {
    {L"VBControls", 47, com::propertyGet, 0, 0,
     [](VBFormObject& self, const Arguments&) -> Variant {
         return self.serving().object<VBControlsObject>(self.model().VBControls());
     }},
};

constexpr com::Member<VBControlsObject> controls[] = {
    // The second argument picks a control of an array by its index; by number they all count.
    {L"Item", 0, com::method, 1, 2,
     [](VBControlsObject& self, const Arguments& arguments) -> Variant {
         return self.serving().object<VBControlObject>(self.model().Item(arguments.number(0)));
     }},
    {L"Count", 40, com::propertyGet, 0, 0,
     [](VBControlsObject& self, const Arguments&) -> Variant { return self.model().Count(); }},
};

constexpr com::Member<VBControlObject> control[] = {
    {L"ClassName", 0, com::propertyGet, 0, 0,
     [](VBControlObject& self, const Arguments&) -> Variant { return self.model().ClassName(); }},
    {L"Properties", 42, com::propertyGet, 0, 0,
     [](VBControlObject& self, const Arguments&) -> Variant {
         return self.serving().object<PropertiesObject>(self.model().Properties());
     }},
};

constexpr com::Member<PropertiesObject> properties[] = {
    {L"Item", 0, com::method, 1, 1,
     [](PropertiesObject& self, const Arguments& arguments) -> Variant {
         return self.serving().object<PropertyObject>(self.model().Item(arguments.text(0)));
     }},
};

constexpr com::Member<PropertyObject> property[] = {
    {L"Value", 0, com::propertyGet, 0, 0,
     [](PropertyObject& self, const Arguments&) -> Variant { return self.model().Value(); }},
};

} // namespace

Members<VBFormObject> VBFormObject::members() {
    return form;
}

Members<VBControlsObject> VBControlsObject::members() {
    return controls;
}

Members<VBControlObject> VBControlObject::members() {
    return control;
}

Members<PropertiesObject> PropertiesObject::members() {
    return properties;
}

Members<PropertyObject> PropertyObject::members() {
    return property;
}

} // namespace corvelle::workbench
