#pragma once

#include "settings/glob.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvelle::settings {

/// What one line of an .editorconfig sets.
struct Pair {
    std::string key;        ///< in lower case
    std::string value;      ///< as written, without blanks at its ends
    std::uint32_t line = 0; ///< from 1
};

struct Section {
    Glob glob;
    std::vector<Pair> pairs;
};

/// The contents of one .editorconfig.
struct EditorConfigFile {
    bool root = false; ///< no file of a folder above holds
    std::vector<Section> sections;
};

inline constexpr std::size_t longestSectionName = 4096, longestKey = 1024, longestValue = 4096;

/// Reads a file's bytes. Lines that are neither a section's name, a pair nor a comment count for nothing, nor
/// do pairs before the first section but root, nor what is longer than allowed. A comment is a whole line: in
/// a value # and ; are characters like others.
EditorConfigFile readEditorConfig(std::string_view bytes);

/// The path as EditorConfig asks for it: absolute, with slashes and without "." and "..".
std::string absolutePath(const std::filesystem::path& path);

/// Reads a settings file of the disk, for EditorConfig: none if there is no such file, which holds for all
/// above a drive or a share too. Throws base::FileError.
std::optional<std::string> readIfThere(const std::string& path);

/// What a property is, and the place that says so.
struct Property {
    std::string value; ///< in lower case where the format knows the property's words
    std::string path;  ///< of the .editorconfig
    std::uint32_t line = 0;
};

/// By key, in lower case.
using Properties = std::map<std::string, Property, std::less<>>;

/// A settings file that is wrong. `what()` names file and line.
class SettingsError : public std::runtime_error {
  public:
    SettingsError(const std::string& path, std::uint32_t line, const std::string& problem)
        : std::runtime_error(path + (line == 0 ? "" : ":" + std::to_string(line)) + ": " + problem) {}
};

/// The .editorconfig files of the folders above a file. Each folder is looked into once in the object's life.
/// May be used by several threads at once.
class EditorConfig {
  public:
    /// Gives the bytes of a file; none if there is no such file; throws std::exception if it cannot be read.
    using Read = std::function<std::optional<std::string>(const std::string& path)>;

    explicit EditorConfig(Read read) : read_(std::move(read)) {}

    /// The properties in force for a file. Its path is absolute, with slashes and without "." and "..".
    /// Nearer files win over farther ones, later sections over earlier ones, and "unset" takes a property
    /// away; then what follows from others is added: an indent_size of tabs is their width, and a tab's width
    /// is the indent_size. Throws SettingsError if one of the files cannot be read or is no text.
    Properties propertiesOf(std::string_view path);

  private:
    struct Folder {
        std::string path; // of the file
        std::optional<EditorConfigFile> file;
        std::optional<SettingsError> problem;
        std::shared_ptr<const Folder> above; // none above a root
    };
    std::shared_ptr<const Folder> folder(const std::string& path);
    std::shared_ptr<Folder> lookInto(const std::string& path) const;

    Read read_;
    std::mutex mutex_;
    std::unordered_map<std::string, std::shared_ptr<const Folder>> folders_;
};

} // namespace corvelle::settings
