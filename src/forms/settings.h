#pragma once

#include <string>

namespace corvelle::forms {

/// The per-user settings store: text values by application, section and key.
class Settings {
  public:
    virtual ~Settings() = default;

    /// The value, or the default where there is none.
    virtual std::string get(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& otherwise) = 0;
    /// Raises a run-time error when the value cannot be saved.
    virtual void save(const std::string& application, const std::string& section, const std::string& key,
                      const std::string& value) = 0;
};

} // namespace corvelle::forms
