#pragma once

#include "viewer/support/viewer_world.h"
#include "viewer/window/viewer_window.h"

#include <QDialog>
#include <QPrinter>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace inin::viewer::test {

/// `count` ordinary letters of different patients: "甲1", "甲2" …
[[nodiscard]] std::vector<Row> differentRows(int count);

/// A printer that writes each job as a PDF file into a folder and may refuse a page.
class PaperPrinter : public QPrinter {
public:
    explicit PaperPrinter(const QString &path, int pages);
    bool newPage() override;

private:
    int m_pages;
};

/// A viewer window with letters in a temporary folder, and with user and printer replaced by test doubles.
struct WindowWorld {
    explicit WindowWorld(const std::vector<Row> &rows, const std::string &form = kForm);

    /// The path of a printed job.
    [[nodiscard]] std::string jobPath(std::size_t job) const;
    [[nodiscard]] ViewerServices services();
    [[nodiscard]] PrintOrder order() const;
    void openWindow();
    /// Acts in the print dialog that the next command opens, then prints.
    void inPrintDialog(const std::function<void(QDialog &)> &act) const;
    /// Opens the print dialog and cancels it; returns its notices about the letters to be printed.
    [[nodiscard]] QString printNotices() const;
    /// Sends a key as a keyboard does: the window's shortcuts come first.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// The number of the letter on the page.
    [[nodiscard]] std::string shownNumber() const;
    /// Waits until the letters have been checked and painted.
    void settle() const;
    template <class Widget> Widget *find(const char *name) const
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }

    TempFolder folder;
    std::string script;
    std::vector<PrinterChoice> printers{{QStringLiteral("紙"), {}, true, QPrinter::DuplexLongSide}};
    int pagesPerJob = 100000; ///< the printer refuses a page after this many
    std::string outputFolder; ///< of the printer; empty means `folder`
    SpoolPdf spool;           ///< empty: the pages are painted
    std::size_t jobs = 0;
    std::vector<PrintOrder> orders;
    std::vector<QString> messages;
    std::deque<CloseAnswer> closeAnswers;
    std::vector<QString> closeStates;
    QString pdfFile, pdfFolder;
    std::vector<QString> offeredFolders; ///< the folders in which the file dialogs were opened
    std::vector<QString> offeredNames;   ///< of PDF files
    bool mayReplace = true;
    std::string ledgerFile; ///< empty: there is no ledger
    Date now = dateOf({2024, 5, 20, 10, 32, 0});
    bool mayErase = true;
    std::unique_ptr<ViewerWindow> window;
};

[[nodiscard]] std::size_t pageCount(const std::string &pdf);
/// A page of a PDF as a picture with 72 dots per inch; pages from 1.
[[nodiscard]] QImage pageImage(const std::string &pdf, int page);
/// The difference of two pictures, from 0 to 255.
[[nodiscard]] double difference(const QImage &a, const QImage &b);

} // namespace inin::viewer::test
