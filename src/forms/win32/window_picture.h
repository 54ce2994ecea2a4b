#pragma once

#include <string>

namespace corvelle::forms {

class Form;

/// Saves a shown form as the screen shows it, frame and caption included, in a bitmap file. Raises "Path/File
/// access error" when the file cannot be written.
void saveWindowPicture(Form& form, const std::string& path);

} // namespace corvelle::forms
