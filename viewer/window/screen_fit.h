#pragma once

#include <QRect>
#include <QSize>

namespace inin::viewer {

/// How a window is shown on a screen.
struct WindowFit {
    QSize size;
    bool isMaximised = false;
};

/// A window of the wanted size on a screen with this room: at most 95 % of it, which leaves the frame inside, and
/// maximised on a small screen.
[[nodiscard]] WindowFit fitWindow(QSize wanted, QSize room);
/// The rectangle moved into the room.
[[nodiscard]] QRect movedInto(QRect window, const QRect &room);

} // namespace inin::viewer
