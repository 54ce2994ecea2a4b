#include "work_folder.h"

#include "require.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

// Removed when the program ends. It has the same name in each run, as long as no other one goes on: what an
// input meets must not depend on chance.
class OwnFolder {
  public:
    OwnFolder() {
        for (int number = 1;; ++number) {
            path_ = fs::temp_directory_path() /
                    (std::string(program_invocation_short_name) + "-" + std::to_string(number));
            if (fs::create_directory(path_)) return;
        }
    }
    ~OwnFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    const fs::path& path() const { return path_; }

  private:
    fs::path path_;
};

const fs::path& folder() {
    static const OwnFolder made;
    static const auto work = made.path() / "w";
    return work;
}

bool isName(std::string_view name) {
    const auto isCharacter = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
               c == '.';
    };
    if (name.empty() || name.size() > 20 || name[0] == '.') return false;
    return std::all_of(name.begin(), name.end(), isCharacter);
}

} // namespace

bool isPath(std::string_view path) {
    const auto slash = path.find('/');
    if (slash == std::string_view::npos) return isName(path);
    return isName(path.substr(0, slash)) && isName(path.substr(slash + 1));
}

std::vector<std::string> differing(const Files& before, const Files& after) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : after) {
        const auto old = before.find(name);
        if (old == before.end() || old->second != bytes) names.push_back(name);
    }
    for (const auto& [name, bytes] : before) require(after.count(name) == 1, "no file is lost: " + name);
    return names;
}

Files filesOf(std::string_view input) {
    Files files;
    std::string* file = &files[""];
    while (!input.empty()) {
        const auto size = std::min(input.find('\n'), input.size() - 1) + 1;
        auto line = input.substr(0, size);
        input.remove_prefix(size);
        auto name = line;
        while (!name.empty() && (name.back() == '\n' || name.back() == '\r')) name.remove_suffix(1);
        if (!name.empty() && name[0] == '@' && isPath(name.substr(1)))
            file = &files[std::string(name.substr(1))];
        else
            file->append(line);
    }
    return files;
}

WorkFolder::WorkFolder() : before_(fs::current_path()) {
    fs::create_directory(folder());
    fs::current_path(folder());
    for (const auto& entry : fs::directory_iterator(".")) fs::remove_all(entry.path());
}

WorkFolder::~WorkFolder() {
    fs::current_path(before_);
}

void WorkFolder::write(const Files& files) {
    for (const auto& [name, bytes] : files) {
        if (name.empty()) continue;
        const fs::path path(name);
        std::error_code ignored;
        if (path.has_parent_path()) fs::create_directories(path.parent_path(), ignored);
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
}

Files WorkFolder::files() {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(".")) {
        if (!entry.is_regular_file()) continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        files[entry.path().lexically_normal().generic_string()] = {std::istreambuf_iterator<char>(stream),
                                                                   {}};
    }
    return files;
}
