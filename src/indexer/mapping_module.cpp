#include "indexer/mapping_module.h"

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

} // namespace corvelle::indexer
