#include "indexer/stable/module_code.h"

#include "base/text.h"
#include "indexer/help_index.h"
#include "indexer/stable/help_properties.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <unordered_set>

namespace corvelle::indexer::stable {

namespace {

constexpr std::string_view procedurePrefix = "Load_HelpID_";

bool isReached(const NumberedDesigner& designer) {
    return designer.type == ide::ComponentType::VBForm || designer.type == ide::ComponentType::VBMDIForm;
}

bool hasHelpContextID(const NumberedControl& control) {
    const auto has = helpPropertiesOf(control.library, control.className);
    if (!has.isVerified && !control.hasWidth && !control.control.empty()) return false;
    return has.helpContextID;
}

class CodeWriter {
  public:
    explicit CodeWriter(const Numbering& numbering) : numbering_(numbering) {
        for (const auto& designer : numbering) taken_.insert(base::upper(designer.name));
    }

    void addConstants() {
        const auto add = [this](std::string_view name, std::int32_t number) {
            addLine(std::string("Public Const ").append(name) + " = " + std::to_string(number));
            ++code_.identifiers;
        };
        const auto isOnDefault = [](const NumberedControl& control) { return control.idhName == defaultIDH; };
        const bool usesDefault =
            std::any_of(numbering_.begin(), numbering_.end(), [&](const NumberedDesigner& designer) {
                return std::any_of(designer.controls.begin(), designer.controls.end(), isOnDefault);
            });
        if (usesDefault) add(defaultIDH, defaultHelpContextID);
        for (const auto& designer : numbering_) {
            for (const auto& control : designer.controls) {
                if (!isOnDefault(control)) add(control.idhName, control.number);
            }
        }
    }

    void addProcedures() {
        for (const auto& designer : numbering_) {
            if (isReached(designer))
                addProcedure(designer);
            else
                code_.notReached.push_back(designer.name);
        }
    }

    ModuleCode take() { return std::move(code_); }

  private:
    void addLine(std::string line) {
        size_ += line.size() + 2;
        code_.lines.push_back(std::move(line));
    }

    // What the compiler makes of a line is not known here; of the source half as much is safe.
    void addProcedure(const NumberedDesigner& designer) {
        auto name = designer.name;
        begin("Public", name, designer.name);
        for (const auto& control : designer.controls) {
            if (!hasHelpContextID(control)) continue;
            if (size_ > largestProcedure / 2) {
                const auto next = partName(designer.name);
                addLine("\tEnd With");
                addLine("\t" + std::string(procedurePrefix) + next + " target");
                addLine("End Sub");
                begin("Private", next, designer.name);
            }
            std::string line = "\t\t";
            if (!control.control.empty()) line.append(".").append(control.control);
            if (control.index) line.append("(").append(std::to_string(*control.index)).append(")");
            addLine(line.append(".HelpContextID = ").append(control.idhName));
        }
        addLine("\tEnd With");
        addLine("End Sub");
    }

    void begin(const char* scope, const std::string& name, const std::string& designer) {
        size_ = 0;
        ++code_.identifiers;
        addLine(std::string(scope) + " Sub " + std::string(procedurePrefix) + name + "(ByVal target As " +
                designer + ")");
        addLine("\tWith target");
    }

    // One that no designer has.
    std::string partName(const std::string& designer) {
        for (std::size_t part = 2;; ++part) {
            auto name = designer + "_" + std::to_string(part);
            if (taken_.insert(base::upper(name)).second) return name;
        }
    }

    const Numbering& numbering_;
    std::unordered_set<std::string> taken_; // what follows the prefix, in upper case
    std::size_t size_ = 0;                  // of the procedure so far
    ModuleCode code_;
};

// The words of a line, apart by blanks; brackets and other signs are words of their own.
std::vector<std::string_view> wordsOf(std::string_view line) {
    std::vector<std::string_view> words;
    for (std::size_t i = 0; i < line.size();) {
        std::size_t end = i + 1;
        if (base::isNameCharacter(line[i])) {
            while (end < line.size() && base::isNameCharacter(line[end])) ++end;
        }
        if (line[i] != ' ' && line[i] != '\t') words.push_back(line.substr(i, end - i));
        i = end;
    }
    return words;
}

bool isNumber(std::string_view word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

// Whether the words are those of the pattern: "IDH" stands for a help name, "PROCEDURE" for the name of one
// of ours, "NAME" for any name, "NUMBER" for digits.
bool areLike(const std::vector<std::string_view>& words, const std::vector<std::string_view>& pattern) {
    return std::equal(words.begin(), words.end(), pattern.begin(), pattern.end(),
                      [](std::string_view word, std::string_view like) {
                          if (like == "IDH") return base::startsWithIgnoringCase(word, "IDH_");
                          if (like == "PROCEDURE") return base::startsWithIgnoringCase(word, procedurePrefix);
                          if (like == "NAME") return base::isNameCharacter(word[0]);
                          if (like == "NUMBER") return isNumber(word);
                          return base::equalIgnoringCase(word, like);
                      });
}

bool isLineOfOurs(std::string_view line) {
    static const std::vector<std::vector<std::string_view>> patterns{
        {},
        {"Option", "Explicit"},
        {"Public", "Const", "IDH", "=", "NUMBER"},
        {"Public", "Sub", "PROCEDURE", "(", ")"},
        {"Public", "Sub", "PROCEDURE", "(", "ByVal", "target", "As", "NAME", ")"},
        {"Private", "Sub", "PROCEDURE", "(", "ByVal", "target", "As", "NAME", ")"},
        {"With", "NAME"},
        {".", "HelpContextID", "=", "IDH"},
        {".", "NAME", ".", "HelpContextID", "=", "IDH"},
        {".", "NAME", ".", "HelpContextID", "="},
        {".", "NAME", "(", "NUMBER", ")", ".", "HelpContextID", "=", "IDH"},
        {"PROCEDURE", "target"},
        {"End", "With"},
        {"End", "Sub"},
    };
    const auto words = wordsOf(line);
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const auto& pattern) { return areLike(words, pattern); });
}

} // namespace

ModuleCode mappingCode(const Numbering& numbering, bool withConstants, bool withProcedures) {
    CodeWriter writer(numbering);
    if (withConstants) writer.addConstants();
    if (withProcedures) writer.addProcedures();
    return writer.take();
}

bool isMappingCodeOfOurs(std::string_view bytes, std::string_view moduleName) {
    if (bytes.empty()) return true;
    TextLines lines(bytes);
    lines.next();
    const auto attribute = std::string("Attribute VB_Name = \"").append(moduleName).append("\"");
    if (!base::equalIgnoringCase(lines.line(), attribute)) return false;
    while (lines.next()) {
        if (!isLineOfOurs(lines.line())) return false;
    }
    return true;
}

std::string longProcedure(std::string_view module) {
    std::string name;
    std::size_t begin = 0;
    for (TextLines lines(module); lines.next();) {
        const auto words = wordsOf(lines.line());
        if (words.size() > 2 && base::equalIgnoringCase(words[1], "Sub")) {
            name = words[2];
            begin = lines.begin();
        } else if (areLike(words, {"End", "Sub"}) && lines.end() - begin > largestProcedure) {
            return name;
        }
    }
    return {};
}

} // namespace corvelle::indexer::stable
