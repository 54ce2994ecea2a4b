#include "forms/controls.h"
#include "gallery/gallery.h"
#include "ui/frm_abt.h"
#include "ui/indicator.h"

#include <array>

namespace corvelle::gallery {

namespace {

/// The busy indicator in both effects, with every border.
class Indicators : public forms::Form {
  public:
    explicit Indicators(forms::Desktop& desktop) : Form(desktop, "Indicators") {}

    std::array<forms::Label, 2> labels{{{*this, "Dots"}, {*this, "Bar"}}};
    std::array<forms::Surface, 6> surfaces{{{*this, "Dots0"},
                                            {*this, "Dots1"},
                                            {*this, "Dots2"},
                                            {*this, "Bar0"},
                                            {*this, "Bar1"},
                                            {*this, "Bar2"}}};
    std::array<ui::Indicator, 6> indicators{{{desktop(), surfaces[0]},
                                             {desktop(), surfaces[1]},
                                             {desktop(), surfaces[2]},
                                             {desktop(), surfaces[3]},
                                             {desktop(), surfaces[4]},
                                             {desktop(), surfaces[5]}}};

  protected:
    void design() override {
        setCaption("Indicator");
        setSize({4560, 2160});
        for (std::size_t effect = 0; effect < labels.size(); ++effect) {
            const int left = 120 + static_cast<int>(effect) * 2220;
            labels[effect].setBounds({left, 120, 2100, 195});
            labels[effect].setCaption(labels[effect].name());
            for (std::size_t border = 0; border < 3; ++border) {
                const int top = 420 + static_cast<int>(border) * 540;
                surfaces[effect * 3 + border].setBounds({left, top, 2100, 420});
            }
        }
    }

    void Form_Load() override {
        for (std::size_t i = 0; i < indicators.size(); ++i) {
            indicators[i].setVisualEffect(static_cast<std::int32_t>(i / 3));
            indicators[i].setBorderStyle(static_cast<std::int32_t>(i % 3));
            indicators[i].StartNow();
        }
    }
};

} // namespace

void showShared(forms::Desktop& desktop, const Look& look) {
    const auto box = ui::frmAbt::defaultInstance(desktop);
    box->setWarning(ui::codeLossWarning, ui::warningColour, forms::colours::white);
    box->setAboutPicture(forms::Picture("page"));
    box->show();
    look("frmAbt", *box);
    box->setTitle("Help ID Indexer");
    box->setAboutPicture(forms::Picture("icon102"));
    look("frmAbt-indexer", *box);
    box->unload();

    const auto indicators = std::make_shared<Indicators>(desktop);
    indicators->show();
    look("Indicator", *indicators);
    indicators->unload();
}

} // namespace corvelle::gallery
