#pragma once

#include "settings/editor_config_file.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

namespace corvelle::settings {

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
