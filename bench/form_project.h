#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace corvelle::bench {

/// A project of so many forms with so many text boxes each, in a folder of its own that is removed at the
/// end.
class FormProject {
  public:
    FormProject(const char* folder, int forms, int controls)
        : folder_(std::filesystem::temp_directory_path() / folder), forms_(forms) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        writeProject();
        for (int i = 0; i < forms; ++i) {
            const auto name = "frm" + std::to_string(i);
            std::ofstream form(folder_ / (name + ".frm"), std::ios::binary);
            form << "VERSION 5.00\r\nBegin VB.Form " << name << "\r\n";
            for (int j = 0; j < controls; ++j)
                form << "   Begin VB.TextBox txt" << j << " \r\n      Height = 285\r\n   End\r\n";
            form << "End\r\nAttribute VB_Name = \"" << name << "\"\r\nOption Explicit\r\n";
        }
    }
    ~FormProject() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    FormProject(const FormProject&) = delete;
    FormProject& operator=(const FormProject&) = delete;

    /// Writes the project's own file: a module that was added is no part of it any more.
    void writeProject() const {
        std::ofstream project(path(), std::ios::binary);
        project << "Type=Exe\r\n";
        for (int i = 0; i < forms_; ++i) project << "Form=frm" << i << ".frm\r\n";
        project << "Name=\"Bench\"\r\n";
    }
    std::filesystem::path path() const { return folder_ / "Bench.vbp"; }
    std::string file(const char* name) const { return (folder_ / name).string(); }

  private:
    std::filesystem::path folder_;
    int forms_;
};

} // namespace corvelle::bench
