#include "formatter/pass_observer.h"

namespace corvelle::formatter {

std::string StructuralError::text() const {
    return (kind == Kind::Tab ? "Tab On Line: " : "Error On Line: ") + std::to_string(position);
}

std::string_view StructuralError::explanation() const {
    return kind == Kind::Tab ? "CV101 this closes a block, but none is open"
                             : "CV102 this End Select closes one block more than is open";
}

void PassObserver::lineKept(std::int32_t count) {
    SetProcInfo("LN: " + std::to_string(count));
}

void PassObserver::lineFormatted(std::int32_t i, std::int32_t maxIndx) {
    SetProcInfo("In Line: " + std::to_string(i) + " of " + std::to_string(maxIndx));
}

} // namespace corvelle::formatter
