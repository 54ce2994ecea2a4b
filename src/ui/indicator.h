#pragma once

#include "forms/drawing.h"
#include "forms/timer.h"
#include "ui/colour_channels.h"
#include "ui/indicator_home.h"
#include "ui/property_bag.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace corvelle::forms {
class Desktop;
class Surface;
} // namespace corvelle::forms

namespace corvelle::ui {

/// Shows that work is going on: while started, a row of dots in which a larger one walks to the right (visual
/// effect 0), or a bar of three blocks that scrolls to the right and wraps (any other effect).
class Indicator {
  public:
    /// An indicator on a form. It takes the surface's events, and starts anew each time the form loads. The
    /// desktop and the surface must outlive it.
    Indicator(forms::Desktop& desktop, forms::Surface& surface);
    /// An indicator anywhere else.
    Indicator(forms::Desktop& desktop, IndicatorHome& home);
    ~Indicator();
    Indicator(const Indicator&) = delete;
    Indicator& operator=(const Indicator&) = delete;

    /// Starts the animation with its first frame and the run time at 0; nothing happens while it runs.
    void StartNow();
    /// Ends the animation, serves what waits, then clears the surface.
    void stopNow();
    /// Stops and continues a started animation; the picture stays as it is.
    void PauseNow();
    void ResumeNow();

    /// Whether every tick raises onTick. False again when the form loads.
    bool RaiseTicK = false;
    std::function<void()> onTick;
    /// A persisted property has been written; the argument is its key.
    std::function<void(const std::string& key)> onPropertyChanged;

    /// Inside of the large dot.
    forms::Colour FillColor() const;
    void setFillColor(forms::Colour colour);
    /// Outline of the large dot. Reading it builds the bar's colours.
    forms::Colour ForeColor();
    void setForeColor(forms::Colour colour);
    /// Milliseconds from frame to frame, 0 to 65,535, else "Invalid property value"; 0 is off.
    std::int32_t Interval() const;
    void setInterval(std::int32_t milliseconds);
    /// The small dots.
    forms::Colour DotColor() const;
    void setDotColor(forms::Colour colour);
    /// 0: dots; 1: bar; any other: a bar whose colours are not built. Writing it builds the bar's colours.
    std::int32_t VisualEffect() const;
    void setVisualEffect(std::int32_t effect);
    /// The bar's leading block. It shows once the bar's colours are built again.
    forms::Colour ScrollColor() const;
    void setScrollColor(forms::Colour colour);
    /// 0: none; 1: a line around the surface; 2: a rectangle in BorderColor one pixel inside its edge.
    /// Writing a larger value changes nothing to see.
    std::int32_t BorderStyle() const;
    void setBorderStyle(std::int32_t style);
    forms::Colour Backcolor() const;
    void setBackcolor(forms::Colour colour);
    forms::Colour BorderColor() const;
    void setBorderColor(forms::Colour colour);
    /// Milliseconds that the ticks since StartNow stand for.
    std::int32_t RunTimeInterval() const;

    /// Starts anew, as a new instance.
    void initProperties();
    /// Takes the properties from the bag; "Invalid property value" for an interval out of range.
    void readProperties(PropertyBag& bag);
    void writeProperties(PropertyBag& bag) const;

    /// The home's canvas has another size; called by the home.
    void resized();

  private:
    struct State {
        std::int32_t borderStyle = 0;
        std::int32_t baseY = 0;
        ColourSteps gradientSteps{};
        std::array<forms::Colour, 3> barColors{}; // the leftmost block first
        std::int16_t activeDot = 0;
        std::int32_t visualEffect = 0;
        forms::Colour scrollColor = 0xFF0000;
        forms::Colour dotColor = 0xFF0000;
        bool running = false;
        std::int32_t runTime = 0;
        std::int32_t barPos = 0; // the frame's dot counter, or the bar's left edge
        std::int32_t previousBarPos = 0;

        // The control surface's own.
        forms::Colour fillColor = forms::colours::black;
        forms::Colour foreColor = forms::colours::buttonText;
        forms::Colour backColor = forms::colours::buttonFace;
        std::int32_t surfaceBorderStyle = 0;
        // Shape1's.
        forms::Colour borderColor = 0x80000002;
        bool shapeVisible = false;
    };

    void drawFrame();
    void drawDots();
    void drawBar();
    void buildBarColors();
    void ticked();
    void countInterval();
    void setSurfaceBorder(std::int32_t style, bool shapeVisible);
    void clear();
    void show();
    void propertyChanged(const char* key);
    int edge() const { return state_.surfaceBorderStyle == 1 ? 1 : 0; }

    forms::Desktop& desktop_;
    std::unique_ptr<IndicatorHome> own_; // of an indicator on a form
    IndicatorHome& home_;
    forms::Timer timer1_;
    State state_;
    forms::Canvas surface_; // what is drawn, within the border and below the shape
    unsigned lives_ = 0;    // how often it has started anew
};

} // namespace corvelle::ui
