#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Files by their paths below a folder, with slashes.
using Files = std::map<std::string, std::string>;

/// The files of an input: a line `@NAME` begins each; what stands before the first one is the file "". A name
/// has ASCII letters, digits, dots and underscores, with one folder before it at most; a line with another
/// name is content.
Files filesOf(std::string_view input);

/// Whether the text may be a file's name in an input.
bool isPath(std::string_view path);

/// The files that differ, new ones included; none may be lost.
std::vector<std::string> differing(const Files& before, const Files& after);

/// A folder of the running target's own. It is the current folder as long as the object lives, so that no
/// path of the machine gets into what a target reads and writes. It is empty at first.
class WorkFolder {
  public:
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    /// Writes the files, but for the one without a name; one that cannot be there beside another is left out.
    static void write(const Files& files);
    /// Every file that is there.
    static Files files();

  private:
    std::filesystem::path before_;
};
