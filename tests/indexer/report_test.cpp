#include "indexer/report.h"

#include <ctime>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifdef _WIN32
#include "base/win32/system_date.h"
#endif

namespace corvelle::indexer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

AnalysisCaptions captions() {
    AnalysisCaptions result;
    result.lblProj = "proj";
    result.LblForms = "forms";
    result.lblMsFrm = "ms";
    result.lblActive = "active";
    result.LblProp = "prop";
    result.LblDOB = "dob";
    result.LblDsr = "dsr";
    result.lblMDI = "mdi";
    result.lblControls = "controls";
    result.lblPrjStat = "stat";
    return result;
}

TEST(Report, BeginsWithTheDateAndTheCaptions) {
    Report report;
    report.append("old");
    report.AddInfo_Rpt("now", captions());
    EXPECT_THAT(report.lines(),
                ElementsAre("Indexing initiated by ContextHElpID Indexer", "now", "proj", "stat", "mdi",
                            "forms", "active", "prop", "dob", "ms", "dsr", "controls"));
}

TEST(Report, ListsTheOptionsInTheirOrder) {
    Report report;
    report.AddInfo_Rpt("now", captions());
    report.AddOptions_Rpt({});
    const auto lines = report.lines();
    EXPECT_EQ(lines[12], "** Indexing Options **");
    EXPECT_THAT(std::vector<std::string>(lines.begin() + 12, lines.end()),
                ElementsAre("** Indexing Options **", "** Controls Excluded **", "Label = False",
                            "Line = False", "Shape = False", "Frame = False", "Menu = False",
                            "Toolbar = False", "** Components Included **", "MDI Form = False",
                            "Form = False", "ActiveX Control = False", "ActiveX Document = False",
                            "Designer = False", "Property page = False", "** Other Options **",
                            "Add Mapping Module = False", "Create Autoload Procedures = False"));
}

TEST(Report, TakesEachOptionFromItsBox) {
    const std::pair<const char*, CheckValue IndexOptions::*> boxes[] = {
        {"Label = ", &IndexOptions::ChkExclLbl},
        {"Line = ", &IndexOptions::ChkExcLine},
        {"Shape = ", &IndexOptions::ChkExcShape},
        {"Frame = ", &IndexOptions::ChKExcFrame},
        {"Menu = ", &IndexOptions::ChkExcMenu},
        {"Toolbar = ", &IndexOptions::ChkExcToolbar},
        {"MDI Form = ", &IndexOptions::ChkMDI},
        {"\r\nForm = ", &IndexOptions::ChkFrm},
        {"ActiveX Control = ", &IndexOptions::ChkActiveXCtl},
        {"ActiveX Document = ", &IndexOptions::ChkDOB},
        {"Designer = ", &IndexOptions::ChkDsr},
        {"Property page = ", &IndexOptions::ChkPG},
        {"Add Mapping Module = ", &IndexOptions::ChkIDMap},
        {"Create Autoload Procedures = ", &IndexOptions::ChkAutoLoad}};
    for (const auto& [line, box] : boxes) {
        IndexOptions options;
        options.*box = 1;
        Report checked;
        checked.AddOptions_Rpt(options);
        EXPECT_THAT(checked.text(), HasSubstr(std::string(line) + "True"));
        EXPECT_EQ(checked.text().find("True"), checked.text().rfind("True")) << line;
        options.*box = 2; // grey
        Report grey;
        grey.AddOptions_Rpt(options);
        EXPECT_EQ(grey.text().find("True"), std::string::npos) << line;
    }
}

TEST(Report, PutsALineBreakBeforeEachLineAndNoneBehind) {
    Report report;
    report.append("a");
    report.append("");
    EXPECT_EQ(report.text(), "\r\na\r\n");
    EXPECT_THAT(report.lines(), ElementsAre("", "a", ""));
    EXPECT_THAT(Report().lines(), ElementsAre(""));
}

std::string dateOf(int month, int day, int hour, int minute, int second) {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return generalDate(time);
}

TEST(GeneralDate, IsWrittenInOneForm) {
    EXPECT_EQ(dateOf(11, 21, 2, 43, 10), "11/21/2026 2:43:10 AM");
    EXPECT_EQ(dateOf(1, 2, 0, 0, 9), "1/2/2026 12:00:09 AM");
    EXPECT_EQ(dateOf(1, 2, 12, 5, 0), "1/2/2026 12:05:00 PM");
    EXPECT_EQ(dateOf(12, 31, 23, 59, 59), "12/31/2026 11:59:59 PM");
    EXPECT_EQ(dateOf(1, 2, 0, 0, 0), "1/2/2026");
    EXPECT_EQ(dateOf(1, 2, 0, 1, 0), "1/2/2026 12:01:00 AM");
    EXPECT_EQ(dateOf(1, 2, 1, 0, 0), "1/2/2026 1:00:00 AM");
}

// The time that was told is one of those that went by meanwhile.
template <class Tell, class Write>
void expectNow(const Tell& tell, const Write& write) {
    const auto textOf = [&](std::time_t time) { return write(*std::localtime(&time)); };
    auto time = std::time(nullptr);
    const std::string told = tell();
    while (time < std::time(nullptr) && textOf(time) != told) ++time;
    EXPECT_EQ(told, textOf(time));
}

TEST(GeneralDate, TellsTheCurrentTime) {
    expectNow(currentDateAndTime, generalDate);
#ifdef _WIN32
    expectNow(systemDateAndTime, [](const std::tm& time) { return base::systemDate(time); });
#else
    expectNow(systemDateAndTime, generalDate);
#endif
}

} // namespace
} // namespace corvelle::indexer
