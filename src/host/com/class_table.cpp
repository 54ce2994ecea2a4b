#include "host/com/class_table.h"

#include "host/com/add_in_objects.h"

#include <corvelle.h>

namespace corvelle::host {

const std::vector<ComClass>& classTable() {
    static const std::vector<ComClass> classes{
        {__uuidof(::CodeFormatter), L"Corvelle.CodeFormatter", L"Trellis", makeCodeFormatter},
        {__uuidof(::ContextHelpIndexer), L"Corvelle.ContextHelpIndexer", L"VB6 Help Context ID Indexer",
         makeContextHelpIndexer},
    };
    return classes;
}

} // namespace corvelle::host
