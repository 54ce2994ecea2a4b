#include "ide/workspace/group_file.h"

#include "base/text.h"
#include "ide/workspace/key_value.h"

#include <algorithm>
#include <unordered_map>

namespace corvelle::workspace {

namespace {

// The form in which two spellings of a path are the same.
std::string folded(std::string_view path) {
    std::string result = base::upper(path);
    std::replace(result.begin(), result.end(), '/', '\\');
    return result;
}

} // namespace

GroupFile::GroupFile(std::string_view bytes) {
    std::unordered_map<std::string, std::size_t> known;
    readKeyValues(bytes, [&](std::string_view key, std::string_view value) {
        const bool isStartup = base::equalIgnoringCase(key, "StartupProject");
        if (!isStartup && !base::equalIgnoringCase(key, "Project")) return;
        const auto path = withoutQuotes(value);
        const auto [place, isNew] = known.try_emplace(folded(path), projects_.size());
        if (isNew) projects_.emplace_back(path);
        if (isStartup) startup_ = place->second;
    });
}

} // namespace corvelle::workspace
