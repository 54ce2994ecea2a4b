#pragma once

#include "ide/designer.h"
#include "workbench/model/serving.h"

namespace corvelle::workbench {

/// VBForm.
class VBFormObject : public Served<VBFormObject, ide::VBForm> {
  public:
    using Served::Served;
    static Members<VBFormObject> members();
};

/// VBControls of a designer.
class VBControlsObject : public Served<VBControlsObject, ide::VBControls> {
  public:
    using Served::Served;
    static Members<VBControlsObject> members();
};

/// VBControl.
class VBControlObject : public Served<VBControlObject, ide::VBControl> {
  public:
    using Served::Served;
    static Members<VBControlObject> members();
};

/// Properties of a control, by name only.
class PropertiesObject : public Served<PropertiesObject, ide::Properties> {
  public:
    using Served::Served;
    static Members<PropertiesObject> members();
};

/// Property.
class PropertyObject : public Served<PropertyObject, ide::Property> {
  public:
    using Served::Served;
    static Members<PropertyObject> members();
};

} // namespace corvelle::workbench
