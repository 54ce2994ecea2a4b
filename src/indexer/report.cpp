#include "indexer/report.h"

#include "indexer/text_lines.h"

#include <array>
#include <cstdio>
#include <string>

#ifdef _WIN32
#include "base/win32/system_date.h"
#endif

namespace corvelle::indexer {

namespace {

std::tm localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return local;
}

} // namespace

std::string generalDate(const std::tm& time) {
    std::array<char, 80> text{};
    constexpr int noon = 12, firstYear = 1900;
    const int hour = time.tm_hour % noon == 0 ? noon : time.tm_hour % noon;
    std::snprintf(text.data(), text.size(), "%d/%d/%d", time.tm_mon + 1, time.tm_mday,
                  time.tm_year + firstYear);
    std::string date = text.data();
    if (time.tm_hour == 0 && time.tm_min == 0 && time.tm_sec == 0) return date;
    std::snprintf(text.data(), text.size(), " %d:%02d:%02d %s", hour, time.tm_min, time.tm_sec,
                  time.tm_hour < noon ? "AM" : "PM");
    return date + text.data();
}

std::string currentDateAndTime() {
    return generalDate(localTime());
}

std::string systemDateAndTime() {
#ifdef _WIN32
    return base::systemDate(localTime());
#else
    return currentDateAndTime();
#endif
}

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

SavedFile saveReport(std::string_view path, const Report& report) {
    if (!WriteLines(path, report.lines())) return {};
    return {true, Message{std::string("File: ").append(path) + " was saved..", forms::box::information}};
}

SavedFile saveProject(std::string_view path, std::string_view dateAndTime, const ProjectInfo& info) {
    if (!WriteLines(path, projectFileLines(dateAndTime, info)))
        return {false, Message{"Errors occured while saving file. ", forms::box::exclamation}};
    return {true, Message{"File was saved successfully.", forms::box::information}};
}

} // namespace corvelle::indexer
