#pragma once

#include <string>

namespace corvelle::forms {

class Desktop;

/// Flags of a file dialog.
namespace file_dialog {
inline constexpr int overwritePrompt = 2;
inline constexpr int pathMustExist = 2048;
inline constexpr int fileMustExist = 4096;
inline constexpr int createPrompt = 8192;
} // namespace file_dialog

/// The common dialog for choosing a file.
class CommonDialog {
  public:
    explicit CommonDialog(Desktop& desktop) : desktop_(desktop) {}

    std::string dialogTitle; ///< empty: the system's own
    std::string fileName;    ///< what is proposed, then what was chosen
    std::string initDir;     ///< the folder shown first; empty: the system's choice
    std::string filter;      ///< description|pattern pairs
    int flags = 0;           ///< of namespace file_dialog
    bool cancelError = false;

    /// Puts the chosen path into fileName. When the user cancels: "Cancel was selected." if cancelError is
    /// set, else fileName keeps its value.
    void showOpen();
    void showSave();

  private:
    void show(bool save);

    Desktop& desktop_;
};

} // namespace corvelle::forms
