#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The formatter's rules once more, written down step by step with nothing but plain strings and 1-based
// positions: slow, without the shortcuts of the real scanner and engine, and sharing no code with them. The
// tests and the fuzz target compare the two.
namespace corvelle::reference {

/// What CheckKey leaves behind.
struct Scanner {
    int startKeyIndex = 0;
    int endKeyIndex = 0;

    /// 0 no key, 1 a block start, 2 a block end.
    int CheckKey(const std::string& mStr);
};

std::string myTrim(const std::string& mStr);
bool isOnlySpace(const std::string& mTxt);
bool CheckChar(const std::string& mStr, long pos, int mCh, bool bMust = false);
bool isCommentLine(const std::string& mStr);
std::string SafeUncomment(const std::string& mStr);
bool Check_Enum_Type(const std::string& tStr, const std::string& mKey);
int Check_IF_THEN_(const std::string& mStr);
bool codeStarted(const std::string& mStr);

/// A run-time error that ends the pass.
struct RunTimeError {
    int number; ///< 5 invalid procedure call or argument, 6 overflow
};

/// One run over one module: clean each line, then VB_Format.
class Engine {
  public:
    int bNoEmpty = 0;
    int bNoCmntLn = 0;
    int bNoAllCmnt = 0;
    int mTab = 2;

    /// Lines that the passes keep, rewritten in place by VB_Format.
    std::vector<std::string> LineBuffer;
    /// Everything told to the dialog in order, one entry a call: "start", "stop", "clear", "events",
    /// "error: ...", "info: ...", "proc: ...".
    std::vector<std::string> told;
    /// The pass looks at this many lines and then finds a stop request; never, if negative.
    long stopAfterLines = -1;

    void clean(const std::string& raw);
    /// Number of structural errors, or -1 when stopped. Throws RunTimeError.
    long VB_Format(long maxIndx);

    int indentLevel = 0;
    /// The line that VB_Format looked at last.
    long position = 0;

  private:
    void writeLine(long i, const std::string& line);

    Scanner scanner;
    bool bCode = false;
    int beginDepth = 0;
    int selectDepth = 0;
    bool caseSeen = false;
    long errorCount = 0;
};

} // namespace corvelle::reference
