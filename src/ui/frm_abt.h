#pragma once

#include "forms/controls.h"
#include "forms/drawing.h"
#include "forms/form.h"

#include <array>
#include <memory>
#include <string>

namespace corvelle::ui {

/// The warning that the add-ins show in their about boxes, and the ground that it stands on.
inline constexpr const char* codeLossWarning =
    " Warning: Author can not be held responsible for any code loss. Keep backups ready. Program under beta "
    "testing.";
inline constexpr forms::Colour warningColour = 0x800080;

/// The about box. The caller takes the default instance, fills it in and shows it with showModal(); a click
/// anywhere closes it.
class frmAbt : public forms::Form {
  public:
    explicit frmAbt(forms::Desktop& desktop);

    /// The one box in use; a new one if there is none. It lasts until a click closes it or nobody holds it
    /// any more, so hold it from the first call to showModal().
    static std::shared_ptr<frmAbt> defaultInstance(forms::Desktop& desktop);

    void setTitle(const std::string& newTitle);
    /// Replaces the version line that the box has once loaded.
    void setVersion(const std::string& newVS);
    /// Shows the text as a coloured strip; hides the strip if the text is empty.
    void setWarning(const std::string& mWarn, forms::Colour BackCol, forms::Colour ForeCol);
    /// The box grows with the picture, so that it is seen whole.
    void setAboutPicture(const forms::Picture& mpic);

    forms::Label LblWarn{*this, "LblWarn"};
    forms::Label Label3{*this, "Label3"}; ///< the credit block
    forms::Image Img{*this, "Img"};
    forms::Label Label2{*this, "Label2"}; ///< the version line
    /// The title, twice: the text and its shadow.
    std::array<forms::Label, 2> Label1{{{*this, "Label1"}, {*this, "Label1"}}};

  protected:
    void design() override;
    void Form_Load() override;
    void Form_Click() override;

  private:
    void layOut(forms::Size picture);
};

} // namespace corvelle::ui
