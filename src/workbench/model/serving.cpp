#include "workbench/model/serving.h"

namespace corvelle::workbench {

std::shared_ptr<WorkbenchHost> Serving::host() const {
    auto host = host_.lock();
    if (!host) throw com::HresultError(RPC_E_DISCONNECTED);
    return host;
}

std::shared_ptr<workspace::Workspace> Serving::workspace() const {
    auto result = host()->workspace();
    if (!result) throw base::RunTimeError(base::ErrorNumber::ObjectVariableNotSet);
    return result;
}

} // namespace corvelle::workbench
