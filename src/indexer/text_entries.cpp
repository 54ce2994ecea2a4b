#include "indexer/text_entries.h"

#include "indexer/files.h"
#include "indexer/text_file.h"

namespace corvelle::indexer {

Message textFileNeeded() {
    return {"You have to create new Text file for Text entries..", forms::box::information};
}

PreparedEntries prepareTextEntries(std::string_view headerPath, std::string_view configurationPath,
                                   std::string_view textPath) {
    PreparedEntries result;
    if (!fileExists(headerPath) || !fileExists(configurationPath)) {
        result.message = {
            "Either header  file or configuration file is invalid.You need to re generate them ",
            forms::box::critical};
        return result;
    }
    result.mappings = LoadMappings(configurationPath);
    if (textPath.empty()) {
        result.message = textFileNeeded();
    } else {
        LoadTextEntries(textPath, result.mappings->index);
    }
    return result;
}

void setDefaultEntry(HelpIndex& index, std::string_view defaultText) {
    index.entries.front().HelpText = defaultText;
    index.entries.front().IDHName = defaultIDH;
}

std::string createdTextFile(std::string_view textPath) {
    return std::string("Created Text file: ").append(textPath);
}

SavedEntries saveTextEntries(std::string_view textPath, std::string_view defaultText, HelpIndex& index) {
    setDefaultEntry(index, defaultText);
    SavedEntries result;
    result.saved = SaveTextFile(textPath, index);
    if (result.saved) {
        result.message = {"File was saved successfully.", forms::box::information};
        result.reportLine = createdTextFile(textPath);
    } else {
        result.message = {"Errors occured while saving file. ", forms::box::exclamation};
    }
    return result;
}

} // namespace corvelle::indexer
