#include "ui/indicator.h"

#include "base/run_time_error.h"
#include "forms/desktop.h"
#include "ui/surface_home.h"

#include <limits>

namespace corvelle::ui {

using base::ignoringErrors;

namespace {

constexpr forms::Colour windowFrame = 0x80000006;
constexpr std::int32_t usualInterval = 120;

/// height - 7.5, rounded to the nearest integer; of two that are as near, the even one.
std::int32_t dotsTop(int height) {
    const int below = height - 8;
    return below % 2 == 0 ? below : below + 1;
}

std::int32_t signedColour(forms::Colour colour) {
    return static_cast<std::int32_t>(colour);
}

} // namespace

Indicator::Indicator(forms::Desktop& desktop, forms::Surface& surface)
    : desktop_(desktop), own_(std::make_unique<SurfaceHome>(surface, *this)), home_(*own_), timer1_(desktop) {
    timer1_.onTimer = [this] { ticked(); };
    timer1_.setInterval(usualInterval);
}

Indicator::Indicator(forms::Desktop& desktop, IndicatorHome& home)
    : desktop_(desktop), home_(home), timer1_(desktop) {
    timer1_.onTimer = [this] { ticked(); };
    initProperties();
}

Indicator::~Indicator() = default;

// Starting and stopping

void Indicator::StartNow() {
    home_.use();
    if (timer1_.enabled()) return;
    timer1_.setEnabled(true);
    state_.running = true;
    state_.runTime = 0;
    state_.barPos = 0;
    drawFrame();
}

void Indicator::stopNow() {
    home_.use();
    const auto alive = home_.keepAlive();
    const unsigned life = lives_;
    timer1_.setEnabled(false);
    state_.running = false;
    state_.activeDot = 0;
    desktop_.doEvents();
    if (life != lives_) return;
    clear();
    show();
}

void Indicator::PauseNow() {
    home_.use();
    if (state_.running) timer1_.setEnabled(false);
}

void Indicator::ResumeNow() {
    home_.use();
    if (state_.running) timer1_.setEnabled(true);
}

void Indicator::ticked() {
    const auto alive = home_.keepAlive();
    const unsigned life = lives_;
    // Nobody called this, so nobody is told that a frame failed: the tick just ends there.
    if (!ignoringErrors([this] { drawFrame(); }) || life != lives_) return;
    countInterval();
    if (RaiseTicK && onTick) {
        ignoringErrors([handler = onTick] { handler(); });
    }
}

void Indicator::countInterval() {
    const std::int64_t sum = std::int64_t{state_.runTime} + timer1_.interval();
    if (sum <= std::numeric_limits<std::int32_t>::max()) state_.runTime = static_cast<std::int32_t>(sum);
}

// Drawing

void Indicator::resized() {
    const forms::Canvas before = surface_;
    surface_.resize(home_.canvas().width() - 2 * edge(), home_.canvas().height() - 2 * edge(),
                    desktop_.resolve(state_.backColor));
    surface_.put(before, 0, 0);
    state_.baseY = dotsTop(surface_.height());
    show();
}

void Indicator::drawFrame() {
    if (state_.visualEffect != 0) {
        drawBar();
    } else {
        drawDots();
    }
}

void Indicator::drawDots() {
    clear();
    state_.barPos = 0;
    int x = 10;
    do {
        if (state_.barPos == state_.activeDot) {
            const int y = state_.baseY - 2;
            surface_.outlineBox(x, y, x + 7, y + 7, desktop_.resolve(state_.foreColor),
                                desktop_.resolve(state_.fillColor));
        } else {
            const int y = state_.baseY;
            surface_.fillBox(x, y, x + 3, y + 3, desktop_.resolve(state_.dotColor));
        }
        ++state_.barPos;
        x += 15;
    } while (surface_.width() - 5 >= x);
    show();
    if (state_.activeDot == std::numeric_limits<std::int16_t>::max()) {
        throw base::RunTimeError(base::ErrorNumber::Overflow);
    }
    ++state_.activeDot;
    if (state_.activeDot == state_.barPos) state_.activeDot = 0;
}

void Indicator::drawBar() {
    const int height = surface_.height();
    state_.previousBarPos = state_.barPos;
    state_.barPos = surface_.width() < state_.barPos ? 0 : state_.barPos + 8;
    clear();
    surface_.fillBox(state_.previousBarPos, 2, state_.previousBarPos + 24, height - 4,
                     desktop_.resolve(state_.backColor));
    int x = state_.barPos;
    for (const forms::Colour block : state_.barColors) {
        surface_.fillBox(x, 2, x + 6, height - 3, desktop_.resolve(block));
        x += 9;
    }
    show();
    const auto alive = home_.keepAlive();
    ignoringErrors([this] { desktop_.doEvents(); });
}

void Indicator::clear() {
    surface_.clear(desktop_.resolve(state_.backColor));
}

void Indicator::show() {
    forms::Canvas& canvas = home_.canvas();
    canvas.put(surface_, edge(), edge());
    if (edge() != 0) {
        canvas.frameBox(0, 0, canvas.width(), canvas.height(), desktop_.resolve(windowFrame));
    }
    if (state_.shapeVisible && canvas.width() > 2 && canvas.height() > 2) {
        canvas.frameBox(1, 1, canvas.width() - 1, canvas.height() - 1, desktop_.resolve(state_.borderColor));
    }
    home_.refresh();
}

void Indicator::buildBarColors() {
    // The channels of the foreground colour are taken apart and then not used.
    [[maybe_unused]] const std::array<std::int16_t, 3> scratch{
        GetRed(state_.foreColor), GetGreen(state_.foreColor), GetBlue(state_.foreColor)};
    if (state_.visualEffect != 1) return;
    state_.gradientSteps = {60, 60, 70};
    state_.barColors[2] = state_.scrollColor;
    state_.barColors[1] = lightenColor(state_.barColors[2], state_.gradientSteps);
    state_.barColors[0] = lightenColor(state_.barColors[1], state_.gradientSteps);
}

// Properties

forms::Colour Indicator::FillColor() const {
    return home_.use(), state_.fillColor;
}

void Indicator::setFillColor(forms::Colour colour) {
    home_.use();
    state_.fillColor = colour;
    propertyChanged("FillColor");
}

forms::Colour Indicator::ForeColor() {
    home_.use();
    buildBarColors();
    return state_.foreColor;
}

void Indicator::setForeColor(forms::Colour colour) {
    home_.use();
    state_.foreColor = colour;
    propertyChanged("ForeColor");
}

std::int32_t Indicator::Interval() const {
    return home_.use(), timer1_.interval();
}

void Indicator::setInterval(std::int32_t milliseconds) {
    home_.use();
    timer1_.setInterval(milliseconds);
    propertyChanged("Interval");
}

forms::Colour Indicator::DotColor() const {
    return home_.use(), state_.dotColor;
}

void Indicator::setDotColor(forms::Colour colour) {
    home_.use();
    state_.dotColor = colour;
    propertyChanged("DotColor");
}

std::int32_t Indicator::VisualEffect() const {
    return home_.use(), state_.visualEffect;
}

void Indicator::setVisualEffect(std::int32_t effect) {
    home_.use();
    state_.visualEffect = effect;
    buildBarColors();
    propertyChanged("VisualEffect");
}

forms::Colour Indicator::ScrollColor() const {
    return home_.use(), state_.scrollColor;
}

void Indicator::setScrollColor(forms::Colour colour) {
    home_.use();
    state_.scrollColor = colour;
    propertyChanged("ScrollColor");
}

std::int32_t Indicator::BorderStyle() const {
    return home_.use(), state_.borderStyle;
}

void Indicator::setBorderStyle(std::int32_t style) {
    home_.use();
    state_.borderStyle = style;
    if (style < 2) {
        setSurfaceBorder(style, false);
    } else if (style == 2) {
        setSurfaceBorder(0, true);
    }
    propertyChanged("BorderStyle");
}

forms::Colour Indicator::Backcolor() const {
    return home_.use(), state_.backColor;
}

void Indicator::setBackcolor(forms::Colour colour) {
    home_.use();
    state_.backColor = colour;
    clear();
    show();
    propertyChanged("BackColor");
}

forms::Colour Indicator::BorderColor() const {
    return home_.use(), state_.borderColor;
}

void Indicator::setBorderColor(forms::Colour colour) {
    home_.use();
    state_.borderColor = colour;
    show();
    propertyChanged("BorderColor");
}

std::int32_t Indicator::RunTimeInterval() const {
    return home_.use(), state_.runTime;
}

void Indicator::setSurfaceBorder(std::int32_t style, bool shapeVisible) {
    state_.surfaceBorderStyle = style;
    state_.shapeVisible = shapeVisible;
    resized(); // the border takes its pixels from the surface
}

void Indicator::propertyChanged(const char* key) {
    if (onPropertyChanged) onPropertyChanged(key);
}

// Persistence

void Indicator::initProperties() {
    ++lives_;
    timer1_.setEnabled(false);
    timer1_.setInterval(usualInterval);
    RaiseTicK = false;
    state_ = State();
    surface_ = forms::Canvas();
    resized();
}

void Indicator::readProperties(PropertyBag& bag) {
    const State otherwise;
    const auto readColour = [&bag](const char* key, forms::Colour value) {
        return static_cast<forms::Colour>(bag.read(key, signedColour(value)));
    };
    state_.fillColor = readColour("FillColor", otherwise.fillColor);
    state_.foreColor = readColour("ForeColor", otherwise.foreColor);
    timer1_.setInterval(bag.read("Interval", usualInterval));
    state_.dotColor = readColour("DotColor", otherwise.dotColor);
    state_.visualEffect = bag.read("visualEffect", otherwise.visualEffect);
    state_.scrollColor = readColour("ScrollColor", otherwise.scrollColor);
    state_.borderStyle = bag.read("BorderStyle", otherwise.borderStyle);
    state_.backColor = readColour("BackColor", otherwise.backColor);
    if (state_.visualEffect == 1) buildBarColors();
    state_.borderColor = readColour("BorderColor", otherwise.borderColor);
    clear();
    if (state_.borderStyle > 1) {
        setSurfaceBorder(0, true);
    } else {
        setSurfaceBorder(state_.borderStyle, false);
    }
}

void Indicator::writeProperties(PropertyBag& bag) const {
    const State otherwise;
    const auto writeColour = [&bag](const char* key, forms::Colour value, forms::Colour usual) {
        bag.write(key, signedColour(value), signedColour(usual));
    };
    writeColour("FillColor", state_.fillColor, otherwise.fillColor);
    writeColour("ForeColor", state_.foreColor, otherwise.foreColor);
    bag.write("Interval", timer1_.interval(), usualInterval);
    writeColour("DotColor", state_.dotColor, otherwise.dotColor);
    bag.write("VisualEffect", state_.visualEffect, otherwise.visualEffect);
    writeColour("ScrollColor", state_.scrollColor, otherwise.scrollColor);
    bag.write("BorderStyle", state_.borderStyle, otherwise.borderStyle);
    writeColour("BackColor", state_.backColor, otherwise.backColor);
    writeColour("BorderColor", state_.borderColor, otherwise.borderColor);
}

} // namespace corvelle::ui
