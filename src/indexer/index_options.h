#pragma once

#include "ide/vb_project.h"

#include <cstdint>

namespace corvelle::indexer {

/// A check box's value: 0 unchecked, 1 checked, 2 grey.
using CheckValue = std::uint8_t;

/// The options of the indexing, named after their check boxes.
struct IndexOptions {
    // Which components get help IDs.
    CheckValue ChkFrm = 0;
    CheckValue ChkMDI = 0;
    CheckValue ChkDsr = 0;
    CheckValue ChkDOB = 0;
    CheckValue ChkPG = 0;
    CheckValue ChkActiveXCtl = 0;

    // Which controls get none. Grey excludes as checked does.
    CheckValue ChkExclLbl = 0;
    CheckValue ChKExcFrame = 0;
    CheckValue ChkExcShape = 0;
    CheckValue ChkExcMenu = 0;
    CheckValue ChkExcLine = 0;
    CheckValue ChkExcToolbar = 0;

    CheckValue ChkIDMap = 0;    ///< add the mapping module
    CheckValue ChkAutoLoad = 0; ///< with a procedure for each designer that assigns the numbers
};

/// Checks the boxes of the components that a project of this type has; clears none.
void SetDefOption(ide::VBProject& project, IndexOptions& options);

} // namespace corvelle::indexer
