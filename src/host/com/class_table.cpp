#include "host/com/class_table.h"

#include "host/com/add_in_objects.h"
#include "host/com/indicator/indicator_control.h"
#include "host/com/module.h"

#include <corvelle.h>

namespace corvelle::host {

namespace {

com::Ptr<IUnknown> makeIndicatorPart(IUnknown* outer) {
    return IndicatorControl::make(moduleInstance(), *typeLibrary(), outer);
}

com::Ptr<IUnknown> makeIndicator() {
    return makeIndicatorPart(nullptr);
}

} // namespace

const std::vector<ComClass>& classTable() {
    static const std::vector<ComClass> classes{
        {__uuidof(::CodeFormatter), L"Corvelle.CodeFormatter", L"Trellis", makeCodeFormatter},
        {__uuidof(::ContextHelpIndexer), L"Corvelle.ContextHelpIndexer", L"VB6 Help Context ID Indexer",
         makeContextHelpIndexer},
        {__uuidof(::Indicator), L"Corvelle.Indicator", L"Busy Indicator", makeIndicator, makeIndicatorPart,
         true},
    };
    return classes;
}

} // namespace corvelle::host
