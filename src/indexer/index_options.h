#pragma once

#include "ide/component.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

// The exclusion list: a text file whose first line holds the names of control classes that are never indexed.

/// Upper-case names; the first element is the empty string.
using ExcludeList = std::vector<std::string>;

/// Reads the list of a file; gives its upper bound. A file that cannot be read leaves the list as it is.
std::size_t ReadExcludeList(std::string_view path, ExcludeList& list);

/// The same, of the file's bytes.
std::size_t readExcludeList(std::string_view bytes, ExcludeList& list);

/// Whether an element equals the text, in letter case too.
bool isInList(std::string_view text, const std::vector<std::string>& list);

/// Whether controls of the class get help IDs: not those on the list, nor those of a class whose box is not
/// unchecked.
bool isIndexable(std::string_view className, const ExcludeList& list, const IndexOptions& options);

} // namespace corvelle::indexer
