#pragma once

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QtTest/QTest>

namespace inin::qt {

/// Clicks an entry of an open menu. From version 6.8 the toolkit ignores a click on a menu over which the mouse has not moved yet,
/// so that the click that opened the menu does not pick an entry too.
inline void clickEntry(QMenu &menu, QAction &entry)
{
    constexpr int kMoves = 8; // the toolkit ignores the first six
    const QPoint place = menu.actionGeometry(&entry).center();
    for (int moves = 0; moves < kMoves; ++moves) {
        QMouseEvent move(QEvent::MouseMove, place, menu.mapToGlobal(place), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&menu, &move);
    }
    QTest::mouseClick(&menu, Qt::LeftButton, {}, place);
}

} // namespace inin::qt
