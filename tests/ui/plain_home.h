#pragma once

#include "forms/headless/headless_desktop.h"
#include "ui/indicator_home.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace corvelle::ui {

/// A home without a form: pixels, and a count of how often they were shown.
class PlainHome : public IndicatorHome {
  public:
    PlainHome(int width, int height) { pixels.resize(width, height, 0x123456); }

    void use() override { ++uses; }
    forms::Canvas& canvas() override { return pixels; }
    void refresh() override { ++refreshes; }
    std::shared_ptr<void> keepAlive() override { return life; }

    forms::Canvas pixels;
    int uses = 0, refreshes = 0;
    std::shared_ptr<int> life = std::make_shared<int>(0);
};

/// The picture as rows of letters, one for each colour of the legend; '?' for any other.
inline std::vector<std::string> rows(const forms::Canvas& canvas,
                                     const std::map<forms::Colour, char>& legend) {
    std::vector<std::string> rows;
    for (int y = 0; y < canvas.height(); ++y) {
        rows.emplace_back();
        for (int x = 0; x < canvas.width(); ++x) {
            const auto found = legend.find(canvas.pixel(x, y));
            rows.back() += found == legend.end() ? '?' : found->second;
        }
    }
    return rows;
}

/// A picture of one letter.
inline std::vector<std::string> plain(int width, int height, char letter = '.') {
    return {static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), letter)};
}

/// Writes a box into a picture, far edge excluded.
inline void box(std::vector<std::string>& picture, int x1, int y1, int x2, int y2, char letter) {
    for (int y = std::max(y1, 0); y < std::min(y2, static_cast<int>(picture.size())); ++y) {
        auto& row = picture[static_cast<std::size_t>(y)];
        for (int x = std::max(x1, 0); x < std::min(x2, static_cast<int>(row.size())); ++x) {
            row[static_cast<std::size_t>(x)] = letter;
        }
    }
}

} // namespace corvelle::ui
