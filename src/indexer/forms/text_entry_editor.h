#pragma once

#include "forms/controls.h"
#include "forms/list_controls.h"
#include "indexer/index_files.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer {

/// Sets the code of every key other than the four arrow keys (37 to 40) to 0.
void ArrowKeysOnly(std::int16_t& keyCode);

/// The editing of an index's text entries in a window: its user walks the designers and their controls,
/// writes the controls' texts, puts controls on the default text or takes them out of the index. The handlers
/// are the window's, which ties them to its controls.
class TextEntryEditor {
  public:
    /// The window's controls, by their names there.
    struct Controls {
        forms::ComboBox& cboDsr;
        forms::ComboBox& CboCtl;
        forms::Label& LblType;
        forms::Label& LblID;
        forms::TextBox& txtHelp;
        forms::CommandButton& CmdDef;
        forms::CommandButton& CmdDel;
    };
    /// The labels that stand at them in the window.
    struct Labels {
        forms::Label& designer;
        forms::Label& control;
        forms::Label& type;
        forms::Label& number;
        forms::Label& text;
    };
    /// The paths that the prompt lists.
    using Paths = std::function<std::vector<std::string_view>()>;

    /// The controls must outlive it.
    TextEntryEditor(const Controls& controls, Paths filesToUpdate)
        : controls_(controls), filesToUpdate_(std::move(filesToUpdate)) {}

    /// Gives the controls and their labels their design-time values, in the lower part of a frame: from the
    /// top to the bottom, both in twips from the frame's edge, and as wide as what lies inside the frame's
    /// margins.
    void design(const Labels& labels, int top, int width, int bottom) const;
    /// The window has been loaded: there is nothing to edit and nothing has been confirmed.
    void reset();
    /// Empties both lists and forgets the index.
    void clear();
    /// Takes the mappings of an index and lists its designers; clear() comes before.
    void takeMappings(Mappings mappings);
    /// The texts are there: chooses the first designer, if there is one.
    void chooseFirst();
    /// Reads the texts of a text file into the entries and shows the chosen control's.
    void loadTexts(std::string_view path);

    HelpIndex& index() { return index_; }
    const HelpIndex& index() const { return index_; }
    /// Whether the user has confirmed that Set Default and Delete make the index files need updating.
    bool bFilesPrompted() const { return bFilesPrompted_; }
    /// Whether it is the editor that writes txtHelp at the moment, not the user.
    bool isShowing() const { return showing_; }

    void cboDsr_Click();
    void CboCtl_Click();
    void CmdDef_Click();
    void CmdDel_Click();
    /// The keys of both lists: they keep their own behaviour.
    static void KeyDown(std::int16_t KeyCode);
    /// Stores the text on display into an entry; nothing happens for entry 0 and beyond the last one.
    void UpdateInfo(const std::int32_t& id);
    /// Asks whether the index files may be marked for update.
    bool getPromptRet();

  private:
    bool isChosen() const;
    std::size_t chosenEntry() const;
    void showEntry(std::size_t entry);
    void showText(const std::string& text, bool enabled);
    void changeEntry(void (*change)(HelpIndex&, std::size_t));

    Controls controls_;
    Paths filesToUpdate_;
    HelpIndex index_;
    std::int32_t firstEntry_ = 0; // of the chosen designer
    int currentRow_ = -1;         // of CboCtl on display; -1: none
    bool bFilesPrompted_ = false;
    bool showing_ = false;
};

} // namespace corvelle::indexer
