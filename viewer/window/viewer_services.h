#pragma once

#include "viewer/window/print_dialog.h"
#include "viewer/window/print_letters.h"

#include <QMessageBox>

#include <functional>

namespace inin::viewer {

enum class CloseAnswer { keepPrinting, closeWhenDone, cancelAndClose };

/// What the window asks of people and machines; tests answer in their place.
struct ViewerServices {
    std::function<std::vector<PrinterChoice>()> printers = systemPrinters;
    PrintRoads roads = systemRoads();
    /// What to do when the window is to close while letters are printed or written.
    std::function<CloseAnswer(QWidget *parent, const QString &state)> askClose;
    std::function<void(QWidget *parent, QMessageBox::Icon icon, const QString &text)> tell;
    /// True when files may be written over.
    std::function<bool(QWidget *parent, const QString &text)> mayReplace;
    /// An empty path when the user thinks better of it. Without a folder the user's documents are offered.
    std::function<QString(QWidget *parent, const QString &folder, const QString &name)> askPdfFile;
    std::function<QString(QWidget *parent, const QString &folder)> askFolder;
    /// Empty is the user's own file.
    QString settingsFile;
};
/// Boxes and dialogs of the real window.
[[nodiscard]] ViewerServices realServices();

} // namespace inin::viewer
