#include "indexer/report.h"

namespace corvelle::indexer {

void Report::append(std::string_view line) {
    text_.append("\r\n").append(line);
}

void Report::AddInfo_Rpt(std::string_view dateAndTime, const AnalysisCaptions& captions) {
    text_ = reportHead;
    append(dateAndTime);
    for (const auto* caption : captions.inReportOrder()) append(*caption);
}

void Report::AddOptions_Rpt(const IndexOptions& options) {
    const auto add = [this](std::string_view key, CheckValue value) {
        append(std::string(key).append(value == 1 ? "True" : "False"));
    };
    append("** Indexing Options **");
    append("** Controls Excluded **");
    add("Label = ", options.ChkExclLbl);
    add("Line = ", options.ChkExcLine);
    add("Shape = ", options.ChkExcShape);
    add("Frame = ", options.ChKExcFrame);
    add("Menu = ", options.ChkExcMenu);
    add("Toolbar = ", options.ChkExcToolbar);
    append("** Components Included **");
    add("MDI Form = ", options.ChkMDI);
    add("Form = ", options.ChkFrm);
    add("ActiveX Control = ", options.ChkActiveXCtl);
    add("ActiveX Document = ", options.ChkDOB);
    add("Designer = ", options.ChkDsr);
    add("Property page = ", options.ChkPG);
    append("** Other Options **");
    add("Add Mapping Module = ", options.ChkIDMap);
    add("Create Autoload Procedures = ", options.ChkAutoLoad);
}

std::vector<std::string> Report::lines() const {
    std::vector<std::string> result;
    for (std::size_t begin = 0;;) {
        const auto end = text_.find("\r\n", begin);
        result.push_back(text_.substr(begin, end - begin));
        if (end == std::string::npos) return result;
        begin = end + 2;
    }
}

} // namespace corvelle::indexer
