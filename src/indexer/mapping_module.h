#pragma once

#include "ide/code.h"
#include "ide/component.h"
#include "indexer/message.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvelle::indexer {

/// Lines in a module of the IDE.
inline constexpr std::int64_t mostModuleLines = 65534;

/// Writes the mapping module's code: constants from line 2 on (line 1 is left to what the IDE puts into a new
/// module) and, below the declarations, the procedures. Whatever the module held at first, no line lands
/// inside another kind's.
class MappingModule {
  public:
    explicit MappingModule(std::shared_ptr<ide::CodeModule> code) : code_(std::move(code)) {}

    void addConstant(std::string_view idhName, std::int32_t number);
    void beginProcedure(const std::string& designerName);
    void addAssignment(std::string_view controlName, std::string_view idhName);
    void endProcedure();

    /// How many lines a module gets: of the constants, if it has them, and of the procedures, if it has them.
    static std::int64_t lineCount(std::int64_t constants, bool withConstants, std::int64_t procedures,
                                  bool withProcedures);

  private:
    void addProcedureLine(std::string_view text);

    std::shared_ptr<ide::CodeModule> code_;
    std::int32_t constantLine_ = 1;
    std::int32_t firstProcedureLine_ = 0; // 0: there is none
};

/// Whether a module of that name can be added to the project. Trims the name unless it begins with a digit;
/// the test for the digit comes first. An empty name passes. Only ASCII letters have no letter case here: a
/// name that differs from another in the case of an accented letter passes, and the IDE refuses it.
bool validModule(std::string& mName, ide::VBProject& project);

/// What is said of a name that is not valid.
Message invalidModuleName(const std::string& mName);

} // namespace corvelle::indexer
