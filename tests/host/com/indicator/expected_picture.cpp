#include "expected_picture.h"

#include <algorithm>
#include <cmath>

namespace corvelle::host {

namespace {

void fill(Rows& picture, int x1, int y1, int x2, int y2, char letter) {
    for (int y = std::max(y1, 0); y < std::min(y2, static_cast<int>(picture.size())); ++y) {
        auto& row = picture[static_cast<std::size_t>(y)];
        for (int x = std::max(x1, 0); x < std::min(x2, static_cast<int>(row.size())); ++x)
            row[static_cast<std::size_t>(x)] = letter;
    }
}

void frame(Rows& picture, int x1, int y1, int x2, int y2, char letter) {
    fill(picture, x1, y1, x2, y1 + 1, letter);
    fill(picture, x1, y2 - 1, x2, y2, letter);
    fill(picture, x1, y1, x1 + 1, y2, letter);
    fill(picture, x2 - 1, y1, x2, y2, letter);
}

Rows plain(int width, int height) {
    return Rows(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), '.'));
}

// What is drawn within the border.
Rows drawing(int width, int height, LONG effect) {
    auto picture = plain(width, height);
    if (effect != 0) {
        for (int i = 0; i < 3; ++i)
            fill(picture, 8 + 9 * i, 2, 8 + 9 * i + 6, height - 3, static_cast<char>('0' + i));
        return picture;
    }
    const int baseY = static_cast<int>(std::nearbyint(height - 7.5)); // ties to even
    fill(picture, 10, baseY - 2, 17, baseY + 5, 'f');
    frame(picture, 10, baseY - 2, 17, baseY + 5, 'o');
    for (int x = 25; x <= width - 5; x += 15) fill(picture, x, baseY, x + 3, baseY + 3, 'd');
    return picture;
}

Rows bordered(const Rows& inside, int width, int height, LONG borderStyle) {
    auto picture = plain(width, height);
    const int edge = borderStyle == 1 ? 1 : 0;
    for (std::size_t y = 0; y < inside.size(); ++y) {
        for (std::size_t x = 0; x < inside[y].size(); ++x) {
            const int at = static_cast<int>(x) + edge;
            fill(picture, at, static_cast<int>(y) + edge, at + 1, static_cast<int>(y) + edge + 1,
                 inside[y][x]);
        }
    }
    if (borderStyle == 1) frame(picture, 0, 0, width, height, '|');
    if (borderStyle == 2) frame(picture, 1, 1, width - 1, height - 1, '#');
    return picture;
}

} // namespace

void paintWith(_Indicator& indicator, LONG effect, LONG borderStyle) {
    indicator.put_Backcolor(colours::back);
    indicator.put_DotColor(colours::dot);
    indicator.put_ForeColor(colours::outline);
    indicator.put_FillColor(colours::inside);
    indicator.put_BorderColor(colours::shape);
    indicator.put_ScrollColor(colours::scroll);
    indicator.put_VisualEffect(effect);
    indicator.put_BorderStyle(borderStyle);
    indicator.put_Interval(60000);
}

Rows firstFrame(int width, int height, LONG effect, LONG borderStyle) {
    const int edges = borderStyle == 1 ? 2 : 0;
    return bordered(drawing(width - edges, height - edges, effect), width, height, borderStyle);
}

Rows stopped(int width, int height, LONG borderStyle) {
    return bordered({}, width, height, borderStyle);
}

} // namespace corvelle::host
