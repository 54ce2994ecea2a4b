#pragma once

#include <filesystem>
#include <fstream>

namespace corvelle::bench {

/// A module of so many lines of code without indentation; the file is removed at the end.
class ModuleOfLines {
  public:
    ModuleOfLines(const char* name, int lines) : path_(std::filesystem::temp_directory_path() / name) {
        std::ofstream file(path_, std::ios::binary);
        file << "Attribute VB_Name = \"Large\"\r\n";
        const char* const body[] = {"Private Sub Step(ByVal n As Long) ' one of many",
                                    "Dim total As Long",
                                    "If n > 0 Then",
                                    "For i = 1 To n",
                                    "total = total + Len(\"a \"\"quoted\"\" text\") * i ' so far",
                                    "Next i",
                                    "Else",
                                    "total = 0",
                                    "End If",
                                    "End Sub"};
        for (int i = 0; i < lines; ++i) file << body[i % 10] << "\r\n";
    }
    ~ModuleOfLines() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    ModuleOfLines(const ModuleOfLines&) = delete;
    ModuleOfLines& operator=(const ModuleOfLines&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

} // namespace corvelle::bench
