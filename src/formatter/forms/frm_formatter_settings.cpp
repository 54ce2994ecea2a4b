#include "base/line_reader.h"
#include "base/run_time_error.h"
#include "formatter/forms/frm_formatter.h"
#include "ide/required.h"
#include "settings/ide_layout.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

// What the .editorconfig files above the module's file say. Where they do not ask for the structured layout
// the dialog works without them, whatever else they say.
namespace corvelle::formatter {

using base::ignoringErrors;

void FrmFormatter::takeSettings() {
    structured_.reset();
    said_ = {};
    settingsProblem_.reset();
    std::optional<structured::StructuredOptions> said;
    ignoringErrors([&] {
        const auto component = ide::required(FmtCodeModule).Parent();
        const std::string file = ide::required(component).FileNames(1);
        if (file.empty() || !ReadSettings) return;
        try {
            said = settings::structuredInIde(file, ReadSettings);
        } catch (const settings::SettingsError& problem) {
            settingsProblem_ = problem;
        }
    });
    if (!said) return;
    said_ = *said;
    PassObserver& observer = *this; // which only this class may see in it
    structured_.emplace(observer,
                        [this](const ModuleCode& code, const structured::StructuredOptions& options) {
                            return LayOutStructured(code, options);
                        });
    const std::uint32_t unit = said_.style.unit ? *said_.style.unit : ownUnit();
    Slider1.setValue(std::min(static_cast<int>(unit), Slider1.range().max));
    unit_.reset(); // until the user moves it
}

// The columns of a level in the module as it stands.
std::uint32_t FrmFormatter::ownUnit() {
    std::uint32_t unit = structured::Unit().count;
    ignoringErrors([&] {
        const std::int32_t count = FmtCodeModule->CountOfLines();
        const std::string text = count > 0 ? FmtCodeModule->Lines(1, count) : std::string();
        std::vector<std::string_view> code;
        for (base::LineReader lines(text); lines.next();) code.push_back(lines.line());
        unit = formatCode({.lines = std::move(code)}, said_).style.columns();
    });
    return unit;
}

structured::StructuredOptions FrmFormatter::structuredOptions() const {
    auto options = said_;
    if (unit_) options.style.unit = unit_;
    options.removeEmptyLines = options_.bNoEmpty == 1;
    options.removeCommentLines = options_.bNoCmntLn == 1;
    options.removeTrailingComments = options_.bNoAllCmnt == 1;
    return options;
}

void FrmFormatter::Slider1_Change() {
    const auto value = static_cast<std::uint8_t>(Slider1.value());
    lblTab.setCaption(std::to_string(value));
    options_.mTab = value;
    unit_ = value == 0 ? said_.style.unit : value;
}

} // namespace corvelle::formatter
