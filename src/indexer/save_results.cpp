#include "indexer/save_results.h"

#include "indexer/files.h"

#include <string>

namespace corvelle::indexer {

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
