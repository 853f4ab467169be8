#include "viewer/window/screen_fit.h"

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr QSize kSmallScreen(1280, 800);
constexpr double kShare = 0.95;

} // namespace

WindowFit fitWindow(QSize wanted, QSize room)
{
    const QSize most(static_cast<int>(room.width() * kShare), static_cast<int>(room.height() * kShare));
    const bool isSmall = room.width() < kSmallScreen.width() || room.height() < kSmallScreen.height();
    return {wanted.boundedTo(most), isSmall};
}

QRect movedInto(QRect window, const QRect &room)
{
    const auto place = [](int at, int size, int from, int length) {
        return std::max(from, std::min(at, from + length - size));
    };
    window.moveTo(place(window.left(), window.width(), room.left(), room.width()),
                  place(window.top(), window.height(), room.top(), room.height()));
    return window;
}

} // namespace inin::viewer
