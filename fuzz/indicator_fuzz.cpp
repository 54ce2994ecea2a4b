// The busy indicator takes its properties from any bag, is drawn at any size, and writes a bag from which it
// is the same again; after what it refuses it goes on.
//
// Input: nine properties of four bytes each, the lowest byte first, then a command a byte.

#include "base/run_time_error.h"
#include "base/text.h"
#include "forms/headless/headless_desktop.h"
#include "require.h"
#include "ui/indicator.h"
#include "ui/plain_home.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>

namespace ui = corvelle::ui;

namespace {

// Gives the input's values in the order in which they are asked for; keeps what is written.
class Bag : public ui::PropertyBag {
  public:
    Bag(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    std::int32_t read(const std::string& key, std::int32_t otherwise) override {
        if (const auto found = values.find(corvelle::base::upper(key)); found != values.end())
            return found->second;
        if (size_ < 5) return otherwise;
        std::uint32_t value = 0;
        for (int i = 3; i >= 0; --i) value = value << 8 | data_[i];
        data_ += 4;
        size_ -= 4;
        return static_cast<std::int32_t>(value);
    }
    void write(const std::string& key, std::int32_t value, std::int32_t) override {
        values[corvelle::base::upper(key)] = value;
    }

    std::map<std::string, std::int32_t> values;

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

std::map<std::string, std::int32_t> written(const ui::Indicator& indicator) {
    Bag bag(nullptr, 0);
    indicator.writeProperties(bag);
    return bag.values;
}

void run(ui::Indicator& indicator, corvelle::forms::HeadlessDesktop& desktop, ui::PlainHome& home,
         std::uint8_t command) {
    const int argument = command / 8;
    switch (command % 8) {
    case 0:
        return indicator.StartNow();
    case 1:
        return indicator.stopNow();
    case 2:
        return indicator.PauseNow();
    case 3:
        return indicator.ResumeNow();
    case 4:
        home.pixels.resize(argument * 3, argument, 0);
        return indicator.resized();
    case 5:
        return indicator.setVisualEffect(argument - 2);
    case 6:
        return indicator.setBorderStyle(argument % 5);
    default:
        desktop.passTime(argument * 40);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvelle::forms::HeadlessDesktop desktop;
    ui::PlainHome home(60, 12);
    ui::Indicator indicator(desktop, home);
    Bag bag(data, size);
    try {
        indicator.readProperties(bag);
    } catch (const corvelle::base::RunTimeError& error) {
        require(error.number() == 380, "only a value is refused");
    }
    for (std::size_t i = 36; i < size; ++i) {
        run(indicator, desktop, home, data[i]);
        require(indicator.Interval() >= 0 && indicator.Interval() <= 65535, "the interval is one");
        require(indicator.RunTimeInterval() >= 0, "time does not go back");
    }
    ui::PlainHome otherHome(60, 12);
    ui::Indicator other(desktop, otherHome);
    Bag kept(nullptr, 0);
    kept.values = written(indicator);
    other.readProperties(kept);
    require(written(other) == kept.values, "what is written is read");
    return 0;
}
