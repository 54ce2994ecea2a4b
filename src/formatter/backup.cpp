#include "formatter/backup.h"

namespace corvelle::formatter {

namespace {

std::string_view extensionOf(ide::ComponentType type) {
    using ide::ComponentType;
    switch (type) {
    case ComponentType::StdModule:
        return ".bas";
    case ComponentType::ClassModule:
        return ".cls";
    case ComponentType::VBForm:
    case ComponentType::VBMDIForm:
        return ".frm";
    case ComponentType::PropPage:
        return ".pag";
    case ComponentType::UserControl:
        return ".ctl";
    case ComponentType::DocObject:
        return ".dob";
    case ComponentType::ActiveXDesigner:
        return ".Dsr";
    case ComponentType::MSForm:
    case ComponentType::ResFile:
    case ComponentType::RelatedDocument:
        break;
    }
    return "";
}

} // namespace

std::string backupName(std::string_view componentName, ide::ComponentType type, unsigned copy) {
    std::string name(componentName);
    name += "_bak";
    if (copy > 1) name += std::to_string(copy);
    name += extensionOf(type);
    return name;
}

} // namespace corvelle::formatter
