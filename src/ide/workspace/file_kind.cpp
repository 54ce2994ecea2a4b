#include "ide/workspace/file_kind.h"

#include "base/text.h"

#include <array>
#include <string_view>

namespace corvelle::workspace {

namespace {

struct Ending {
    std::string_view text;
    ide::ComponentType type;
};

constexpr std::array moduleEndings{
    Ending{".bas", ide::ComponentType::StdModule},       Ending{".cls", ide::ComponentType::ClassModule},
    Ending{".frm", ide::ComponentType::VBForm},          Ending{".ctl", ide::ComponentType::UserControl},
    Ending{".pag", ide::ComponentType::PropPage},        Ending{".dob", ide::ComponentType::DocObject},
    Ending{".dsr", ide::ComponentType::ActiveXDesigner},
};

// Compared by the path's own characters, so that a name that no code page holds is no obstacle.
bool endsIn(const std::filesystem::path& path, std::string_view ending) {
    const auto& text = path.native();
    if (text.size() < ending.size()) return false;
    const auto* tail = text.data() + (text.size() - ending.size());
    for (std::size_t i = 0; i < ending.size(); ++i) {
        using Character = std::filesystem::path::value_type;
        if (tail[i] != Character(ending[i]) && tail[i] != Character(base::upper(ending[i]))) return false;
    }
    return true;
}

} // namespace

std::optional<ide::ComponentType> moduleTypeOfPath(const std::filesystem::path& path) {
    for (const auto& ending : moduleEndings) {
        if (endsIn(path, ending.text)) return ending.type;
    }
    return std::nullopt;
}

bool isModulePath(const std::filesystem::path& path) {
    return moduleTypeOfPath(path).has_value();
}

bool isProjectPath(const std::filesystem::path& path) {
    return endsIn(path, ".vbp");
}

bool isGroupPath(const std::filesystem::path& path) {
    return endsIn(path, ".vbg");
}

} // namespace corvelle::workspace
