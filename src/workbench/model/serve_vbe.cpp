#include "workbench/model/serve_vbe.h"

#include "workbench/model/vbe_object.h"

namespace corvelle::workbench {

com::Ptr<IDispatch> serveVBE(const std::weak_ptr<WorkbenchHost>& host) {
    return std::make_shared<Serving>(host)->object<VBEObject>();
}

} // namespace corvelle::workbench
