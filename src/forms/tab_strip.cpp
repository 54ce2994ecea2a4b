#include "forms/tab_strip.h"

#include "base/run_time_error.h"

namespace corvelle::forms {

void TabStrip::select(int index) {
    if (index < 1 || index > static_cast<int>(tabs().size())) {
        throw base::RunTimeError(base::ErrorNumber::InvalidPropertyValue);
    }
    if (change(selected_, index, Aspect::Value)) raise(onClick);
}

} // namespace corvelle::forms
