#pragma once

#include "viewer/support/viewer_world.h"
#include "viewer/window/viewer_window.h"

#include <QPrinter>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace inin::viewer::test {

/// `count` ordinary letters of different persons: "甲1", "甲2" …
[[nodiscard]] std::vector<Row> differentRows(int count);

/// A printer that prints PDF files into a folder, one a job, and may refuse a page.
class PaperPrinter : public QPrinter {
public:
    explicit PaperPrinter(const QString &path, int pages);
    bool newPage() override;

private:
    int m_pages;
};

/// A window over letters in a folder of its own, with people and printers that answer as a test wants.
struct WindowWorld {
    explicit WindowWorld(const std::vector<Row> &rows, const std::string &form = kForm);

    /// The paths of the jobs that were printed.
    [[nodiscard]] std::string jobPath(std::size_t job) const;
    [[nodiscard]] ViewerServices services();
    [[nodiscard]] PrintOrder order() const;
    void openWindow();
    /// Waits until the letters have been judged and painted.
    void settle() const;
    template <class Widget> Widget *find(const char *name) const
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }

    TempFolder folder;
    std::string script;
    std::vector<PrinterChoice> printers{{QStringLiteral("紙"), {}, true, QPrinter::DuplexLongSide}};
    int pagesPerJob = 100000; ///< the printer refuses a page behind so many
    std::string outputFolder; ///< of the printer; empty is `folder`
    SpoolPdf spool;           ///< empty: the pages are painted
    std::size_t jobs = 0;
    std::vector<PrintOrder> orders;
    std::vector<QString> told;
    std::deque<CloseAnswer> closeAnswers;
    std::vector<QString> closeStates;
    QString pdfFile, pdfFolder;
    std::vector<QString> offeredFolders; ///< where the questions for a file or folder began
    bool mayReplace = true;
    std::unique_ptr<ViewerWindow> window;
};

[[nodiscard]] std::size_t pageCount(const std::string &pdf);
/// A page of a PDF as a picture of 72 dots an inch; pages from 1.
[[nodiscard]] QImage pageImage(const std::string &pdf, int page);
/// How much two pictures differ, from 0 to 255.
[[nodiscard]] double difference(const QImage &a, const QImage &b);

} // namespace inin::viewer::test
