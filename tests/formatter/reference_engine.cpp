#include "formatter/reference_engine.h"

namespace corvelle::reference {

namespace {

const std::vector<std::string> StartKeys{
    "Sub",
    "Function",
    "Property",
    "Private Sub",
    "Private Function",
    "Property",
    "Public Sub",
    "Public Function",
    "Public Property",
    "Friend Sub",
    "Friend Function",
    "Friend Property",
    "For",
    "Do",
    "While",
    "Select",
    "Case",
    "With",
    "Do While",
    "Begin",
    "BeginProperty",
    "Enum",
    "Private Enum",
    "Public Enum",
    "Type",
    "Private Type",
    "Public Type",
    " Then",
};

const std::vector<std::string> EndKeys{
    "End Sub", "End Function", "End Property", "Else",        "Next", "Loop",   "Wend",
    "End IF",  "End Select",   "End With",     "EndProperty", "End",  "ElseIF",
};

const std::vector<int> OpChars{32, 43, 45, 47, 92, 42, 38, 61, 40, 41};

// The language's own string functions. Positions are 1-based; 0 means "not there".

long Len(const std::string& s) {
    return static_cast<long>(s.size());
}

std::string Mid(const std::string& s, long start, long length) {
    std::string result;
    for (long p = start; p < start + length && p <= Len(s); ++p) result += s[static_cast<std::size_t>(p - 1)];
    return result;
}

std::string Left(const std::string& s, long length) {
    return Mid(s, 1, length);
}

std::string Right(const std::string& s, long length) {
    return length >= Len(s) ? s : Mid(s, Len(s) - length + 1, length);
}

std::string UCase(const std::string& s) {
    std::string result;
    for (char c : s) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
        result += c;
    }
    return result;
}

std::string Trim(std::string s) {
    while (!s.empty() && s[0] == ' ') s.erase(0, 1);
    while (!s.empty() && s[s.size() - 1] == ' ') s.erase(s.size() - 1, 1);
    return s;
}

std::string Space(long count) {
    return std::string(static_cast<std::size_t>(count), ' ');
}

long InStr(long start, const std::string& s, const std::string& wanted) {
    for (long p = start; p + Len(wanted) - 1 <= Len(s); ++p) {
        if (Mid(s, p, Len(wanted)) == wanted) return p;
    }
    return 0;
}

long InStrText(const std::string& s, const std::string& wanted) {
    return InStr(1, UCase(s), UCase(wanted));
}

long InStrRevText(const std::string& s, const std::string& wanted) {
    for (long p = Len(s) - Len(wanted) + 1; p >= 1; --p) {
        if (UCase(Mid(s, p, Len(wanted))) == UCase(wanted)) return p;
    }
    return 0;
}

bool startsWith(const std::string& s, const std::string& phrase) {
    return InStrText(Left(s, Len(phrase)), phrase) == 1;
}

int Int16(long value) {
    if (value > 32767 || value < -32768) throw RunTimeError{6};
    return static_cast<int>(value);
}

} // namespace

int Scanner::CheckKey(const std::string& mStr) {
    const std::string text = Trim(SafeUncomment(mStr));
    if (text.empty()) return 0;
    for (int index = 0; index <= 26; ++index) {
        const std::string& phrase = StartKeys[static_cast<std::size_t>(index)];
        if (startsWith(text, phrase) && CheckChar(text, Len(phrase) + 1, 32)) {
            if (index >= 18 && index <= 23 && !Check_Enum_Type(text, phrase)) return 0;
            startKeyIndex = index;
            return 1;
        }
    }
    for (int index = 0; index <= 12; ++index) {
        const std::string& phrase = EndKeys[static_cast<std::size_t>(index)];
        if (startsWith(text, phrase) && CheckChar(text, Len(phrase) + 1, 32)) {
            endKeyIndex = index;
            return 2;
        }
    }
    if (Check_IF_THEN_(text) == 1) {
        startKeyIndex = 27;
        return 1;
    }
    return 0;
}

std::string myTrim(const std::string& mStr) {
    std::string withoutTabs;
    for (const char c : mStr) {
        if (c != '\t') withoutTabs += c;
    }
    return Trim(withoutTabs);
}

bool isOnlySpace(const std::string& mTxt) {
    for (const char c : mTxt) {
        if (c != ' ') return false;
    }
    return true;
}

bool CheckChar(const std::string& mStr, long pos, int mCh, bool bMust) {
    if (pos > Len(mStr)) return !bMust;
    return static_cast<unsigned char>(mStr[static_cast<std::size_t>(pos - 1)]) == mCh;
}

bool isCommentLine(const std::string& mStr) {
    const long apostrophe = InStr(1, mStr, "'");
    if (apostrophe == 1) return true;
    if (apostrophe != 0) return false;
    return startsWith(mStr, "Rem") && CheckChar(mStr, 4, 32);
}

std::string SafeUncomment(const std::string& mStr) {
    if (isCommentLine(mStr)) return "";
    long q = 0;
    long n = 0;
    for (;;) {
        const long a = InStr(q + 1, mStr, "'");
        if (a == 0) return mStr;
        bool before = false;
        bool after = false;
        for (int twice = 1; twice <= 2; ++twice) {
            q = InStr(q + 1, mStr, "\"");
            n = n + 1;
            if (q < a) {
                before = true;
            } else {
                after = true;
            }
            if (n % 2 == 0 && !after) return Left(mStr, a - 1);
            if (n % 2 == 1 && !before) return Left(mStr, a - 1);
        }
    }
}

bool Check_Enum_Type(const std::string& tStr, const std::string& mKey) {
    std::string rest = Mid(tStr, Len(mKey) + 1, Len(tStr));
    if (rest.empty()) return false;
    rest = Trim(SafeUncomment(rest));
    for (const int opChar : OpChars) {
        if (InStr(1, rest, std::string(1, static_cast<char>(opChar))) != 0) return false;
    }
    return true;
}

int Check_IF_THEN_(const std::string& mStr) {
    std::string code = SafeUncomment(mStr);
    const long p = InStrRevText(mStr, " Then");
    if (p == 0) return 0;
    if (!CheckChar(code, p + 5, 32)) return 0;
    code = Trim(code);
    if (UCase(Right(code, 4)) == "THEN") return 1;
    if (Right(code, 1) == "_") return 2;
    return 3;
}

bool codeStarted(const std::string& mStr) {
    if (InStrText(mStr, "Option Explicit") != 0) return true;
    if (startsWith(mStr, "Dim ")) return true;
    if (startsWith(mStr, "Public ")) return true;
    if (startsWith(mStr, "Private ")) return true;
    if (startsWith(mStr, "Const ")) return true;
    if (startsWith(mStr, "Friend ")) return true;
    if (startsWith(mStr, "Enum ") && Check_Enum_Type(mStr, "Enum")) return true;
    if (startsWith(mStr, "Type ") && Check_Enum_Type(mStr, "Type")) return true;
    return false;
}

void Engine::clean(const std::string& raw) {
    std::string t = myTrim(raw);
    if (bNoEmpty == 1 && t.empty()) return;
    if (!bCode) bCode = codeStarted(t);
    if (bNoCmntLn == 1 && isCommentLine(t)) return;
    if (bNoAllCmnt == 1 && bCode && InStr(1, t, "'") > 1) t = SafeUncomment(t);
    LineBuffer.push_back(t);
    told.push_back("proc: LN: " + std::to_string(LineBuffer.size()));
    told.push_back("events");
}

void Engine::writeLine(long i, const std::string& line) {
    const int spaces = Int16(static_cast<long>(mTab) * indentLevel);
    if (spaces < 0) throw RunTimeError{5};
    LineBuffer[static_cast<std::size_t>(i)] = Space(spaces) + line;
}

long Engine::VB_Format(long maxIndx) {
    errorCount = 0;
    told.push_back("start");
    told.push_back("clear");
    told.push_back("info: Formating...");
    for (long i = 0; i <= maxIndx; ++i) {
        told.push_back("events");
        if (i == stopAfterLines) {
            told.push_back("stop");
            told.push_back("proc: Cleaning Memory..");
            told.push_back("proc: No Process..");
            return -1;
        }
        position = i;
        const std::string line = LineBuffer[static_cast<std::size_t>(i)];
        const int k = scanner.CheckKey(line);
        if (k == 1) {
            if (scanner.startKeyIndex == 19 && CheckChar(line, 6, 32)) beginDepth = Int16(beginDepth + 1);
            if (scanner.startKeyIndex == 15) selectDepth = Int16(selectDepth + 1);
            if (scanner.startKeyIndex == 16) {
                if (selectDepth > 0 && caseSeen) indentLevel = Int16(indentLevel - 1);
                caseSeen = true;
            }
            writeLine(i, line);
            indentLevel = Int16(indentLevel + 1);
        }
        if (k == 2) {
            if (indentLevel != 0) {
                indentLevel = Int16(indentLevel - 1);
            } else {
                errorCount = errorCount + 1;
                told.push_back("error: Tab On Line: " + std::to_string(i));
            }
            if (scanner.endKeyIndex == 11 && Len(line) == 3) {
                if (beginDepth > 0) {
                    beginDepth = Int16(beginDepth - 1);
                } else {
                    indentLevel = Int16(indentLevel + 1);
                }
            }
            if (scanner.endKeyIndex == 8) {
                if (caseSeen) {
                    if (indentLevel != 0) {
                        indentLevel = Int16(indentLevel - 1);
                    } else {
                        errorCount = errorCount + 1;
                        told.push_back("error: Error On Line: " + std::to_string(i));
                    }
                }
                caseSeen = false;
                selectDepth = 0;
            }
            writeLine(i, line);
            if (scanner.endKeyIndex == 3) indentLevel = Int16(indentLevel + 1);
            if (scanner.endKeyIndex == 12) {
                if (Check_IF_THEN_(LineBuffer[static_cast<std::size_t>(i)]) == 1) {
                    indentLevel = Int16(indentLevel + 1);
                }
            }
        }
        if (k == 0) {
            if (Right(line, 1) != ":") writeLine(i, line);
        }
        told.push_back("proc: In Line: " + std::to_string(i) + " of " + std::to_string(maxIndx));
    }
    told.push_back("info: Formating Done...");
    told.push_back("stop");
    return errorCount;
}

} // namespace corvelle::reference
