#pragma once

#include <array>
#include <string>

namespace corvelle::indexer {

/// What the labels of the analysis read, named after them.
struct AnalysisCaptions {
    std::string lblProj, LblForms, lblMsFrm, lblActive, LblProp, LblDOB, LblDsr, lblMDI, lblControls,
        lblPrjStat;

    /// In the order of the report's head.
    std::array<const std::string*, 10> inReportOrder() const {
        return {&lblProj, &lblPrjStat, &lblMDI,   &LblForms, &lblActive,
                &LblProp, &LblDOB,     &lblMsFrm, &LblDsr,   &lblControls};
    }
};

} // namespace corvelle::indexer
