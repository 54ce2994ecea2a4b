#include "indexer/index_options.h"

namespace corvelle::indexer {

void SetDefOption(ide::VBProject& project, IndexOptions& options) {
    using ide::ProjectType;
    if (project.Type() == ProjectType::StandardExe) options.ChkFrm = options.ChkMDI = 1;
    if (project.Type() == ProjectType::ActiveXControl)
        options.ChkPG = options.ChkActiveXCtl = options.ChkFrm = 1;
    if (project.Type() == ProjectType::ActiveXDll || project.Type() == ProjectType::ActiveXExe)
        options.ChkDOB = options.ChkFrm = options.ChkDsr = 1;
}

} // namespace corvelle::indexer
