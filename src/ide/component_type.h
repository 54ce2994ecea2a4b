#pragma once

namespace corvelle::ide {

/// The IDE's component types (`vbext_ComponentType`).
enum class ComponentType {
    StdModule = 1,
    ClassModule = 2,
    MSForm = 3,
    ResFile = 4,
    VBForm = 5,
    VBMDIForm = 6,
    PropPage = 7,
    UserControl = 8,
    DocObject = 9,
    RelatedDocument = 10,
    ActiveXDesigner = 11,
};

/// Whether components of that type have a designer: all but modules and classes.
constexpr bool hasDesigner(ComponentType type) {
    return type != ComponentType::StdModule && type != ComponentType::ClassModule;
}

/// The IDE's project types (`vbext_ProjectType`).
enum class ProjectType {
    StandardExe = 0,
    ActiveXExe = 1,
    ActiveXDll = 2,
    ActiveXControl = 3,
};

} // namespace corvelle::ide
