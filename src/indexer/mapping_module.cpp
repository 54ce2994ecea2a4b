#include "indexer/mapping_module.h"

#include "base/text.h"
#include "ide/required.h"

#include <algorithm>

namespace corvelle::indexer {

using ide::required;

void MappingModule::addConstant(std::string_view idhName, std::int32_t number) {
    ++constantLine_;
    auto line = std::min(constantLine_, required(code_).CountOfLines() + 1);
    if (firstProcedureLine_ != 0) line = std::min(line, firstProcedureLine_);
    const auto text = std::string("Public Const ").append(idhName) + " = " + std::to_string(number);
    code_->InsertLines(line, text);
    if (firstProcedureLine_ != 0) ++firstProcedureLine_;
}

void MappingModule::beginProcedure(const std::string& designerName) {
    addProcedureLine("Public Sub Load_HelpID_" + designerName + " ()");
    addProcedureLine("\tWith " + designerName);
}

void MappingModule::addAssignment(std::string_view controlName, std::string_view idhName) {
    addProcedureLine(std::string("\t\t.").append(controlName).append(".HelpContextID = ").append(idhName));
}

void MappingModule::endProcedure() {
    addProcedureLine("\tEnd With");
    addProcedureLine("End Sub");
}

void MappingModule::addProcedureLine(std::string_view text) {
    const auto line = required(code_).CountOfLines() + 1;
    code_->InsertLines(line, text);
    if (firstProcedureLine_ == 0) firstProcedureLine_ = line;
}

std::int64_t MappingModule::lineCount(std::int64_t constants, bool withConstants, std::int64_t procedures,
                                      bool withProcedures) {
    constexpr std::int64_t frame = 4; // Sub, With, End With, End Sub
    return (withConstants ? constants : 0) + (withProcedures ? constants + frame * procedures : 0);
}

bool validModule(std::string& mName, ide::VBProject& project) {
    if (!mName.empty() && mName[0] >= '0' && mName[0] <= '9') return false;
    mName = base::trimSpaces(mName);
    if (mName.find_first_of(" &-+*/%\\") != std::string::npos) return false;
    const auto components = project.VBComponents();
    const auto count = ide::required(components).Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        if (base::equalIgnoringCase(ide::required(components->Item(i)).Name(), mName)) return false;
    }
    return true;
}

Message invalidModuleName(const std::string& mName) {
    return {"The module name '" + mName +
                "' is invalid. \rEither it is a invalid VB Name or a module with same name \r"
                "already exists in the current project.",
            forms::box::exclamation};
}

} // namespace corvelle::indexer
