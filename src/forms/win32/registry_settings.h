#pragma once

#include "forms/desktop.h"

namespace corvelle::forms {

/// The settings store of VB programs: text values under HKEY_CURRENT_USER\Software\VB and VBA Program
/// Settings\APPLICATION\SECTION.
class RegistrySettings : public Settings {
  public:
    std::string get(const std::string& application, const std::string& section, const std::string& key,
                    const std::string& otherwise) override;
    void save(const std::string& application, const std::string& section, const std::string& key,
              const std::string& value) override;
};

} // namespace corvelle::forms
