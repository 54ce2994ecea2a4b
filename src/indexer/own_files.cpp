#include "indexer/own_files.h"

#include "base/ignoring_errors.h"
#include "base/path_text.h"
#include "base/same_path.h"
#include "base/text.h"
#include "ide/required.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>

namespace corvelle::indexer {

using base::ignoringErrors;
using ide::required;

namespace {

std::vector<std::string> filesOf(const std::shared_ptr<ide::VBProject>& project) {
    std::vector<std::string> files;
    ignoringErrors([&] { files.push_back(required(project).FileName()); });
    std::shared_ptr<ide::VBComponents> components;
    std::int32_t count = 0;
    ignoringErrors([&] { components = required(project).VBComponents(); });
    ignoringErrors([&] { count = required(components).Count(); });
    for (std::int32_t i = 1; i <= count; ++i)
        ignoringErrors([&] { files.push_back(required(components->Item(i)).FileNames(1)); });
    files.erase(std::remove(files.begin(), files.end(), std::string()), files.end()); // not saved yet
    return files;
}

// The IDE keeps a component's pictures beside its file.
bool isBinaryPart(const std::filesystem::path& path, std::filesystem::path owner) {
    constexpr std::array<const char*, 5> endings{".frx", ".ctx", ".pgx", ".dox", ".dsx"};
    const auto ending = base::textOf(path.extension());
    const bool isOne = std::any_of(endings.begin(), endings.end(),
                                   [&](const char* known) { return base::equalIgnoringCase(ending, known); });
    return isOne && base::isSamePath(path, owner.replace_extension(path.extension()));
}

bool isOwn(const std::string& path, const std::vector<std::string>& files) {
    bool own = false;
    for (const auto& file : files) {
        ignoringErrors([&] {
            const auto typed = base::pathOf(path), member = base::pathOf(file);
            own = own || base::isSamePath(typed, member) || isBinaryPart(typed, member);
        });
    }
    return own;
}

} // namespace

std::optional<Message> whatForbidsPaths(const std::shared_ptr<ide::VBProject>& project,
                                        const std::vector<std::string>& paths) {
    const auto files = filesOf(project);
    for (const auto& path : paths) {
        if (!path.empty() && isOwn(path, files))
            return Message{"'" + path + "' is a file of the project itself. \rPlease choose another file.",
                           forms::box::exclamation};
    }
    return {};
}

} // namespace corvelle::indexer
