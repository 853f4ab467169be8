#pragma once

#include "system/local_time.h"
#include "viewer/io/system_edges.h"
#include "viewer/window/print_dialog.h"
#include "viewer/window/print_letters.h"

#include <QMessageBox>

#include <functional>

namespace inin::viewer {

enum class CloseAnswer { keepPrinting, closeWhenDone, cancelAndClose };

/// Services of the user and the system that the window needs; tests replace them.
struct ViewerServices {
    std::function<std::vector<PrinterChoice>()> printers = systemPrinters;
    PrintPaths paths = systemPaths();
    /// Lets the user choose what to do when the window is closed during printing or writing.
    std::function<CloseAnswer(QWidget *parent, const QString &state)> askClose;
    std::function<void(QWidget *parent, QMessageBox::Icon icon, const QString &text)> showMessage;
    /// Asks whether existing files may be overwritten.
    std::function<bool(QWidget *parent, const QString &text)> mayReplace;
    /// Returns an empty path when the user cancels. Without a folder the user's documents are offered.
    std::function<QString(QWidget *parent, const QString &folder, const QString &name)> askPdfFile;
    /// The same for the list of missing letters; the kind of file is the name's extension.
    std::function<QString(QWidget *parent, const QString &folder, const QString &name)> askListFile;
    std::function<QString(QWidget *parent, const QString &folder)> askFolder;
    /// The day that the check compares dates with.
    std::function<Date()> today = presentDay;
    /// The local time.
    std::function<Date()> now = presentMoment;
    /// The file of the letter ledger by the user's settings, empty when it is switched off. Without this function there
    /// is no ledger.
    std::function<std::string(const LedgerSettings &settings)> ledgerPath;
    std::function<QString(QWidget *parent)> askLedgerFolder;
    /// Asks whether the ledger's records may be erased.
    std::function<bool(QWidget *parent, const QString &text)> mayErase;
    /// Empty means the user's own file.
    QString settingsFile;
};
/// The boxes and dialogs of the real window.
[[nodiscard]] ViewerServices realServices();

} // namespace inin::viewer
