#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/whole_file.h"
#include "viewer/document/letter_ticks.h"
#include "viewer/paint/qt_page_painter.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/returns/missing_letters.h"
#include "viewer/returns/missing_pages.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/returns_window.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <numeric>

// The lists of missing letters: on paper, as PDF and as a table.

namespace inin::viewer {

using namespace Qt::StringLiterals;

void ReturnsWindow::buildOutput(QBoxLayout *layout)
{
    auto *const row = new QHBoxLayout;
    const auto add = [&](const char *name, const QString &text, auto what) {
        auto *const button = new QPushButton(text, this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false); // Enter belongs to the box of codes
        QObject::connect(button, &QPushButton::clicked, this, what);
        row->addWidget(button);
    };
    add("returnsTickShown", u"表示中をすべて返送済みに(&A)"_s, [this] {
        std::vector<int> rows(static_cast<std::size_t>(m_model.rowCount()));
        std::iota(rows.begin(), rows.end(), 0);
        (void)tick(rows, true);
    });
    add("returnsOpen", u"読み取ったファイルを開く(&O)…"_s, [this] {
        readFiles(QFileDialog::getOpenFileNames(this, u"読み取ったファイル"_s, m_settings.pdfFolder(),
                                                u"PDF と画像 (*.pdf *.png *.jpg *.jpeg *.tif *.tiff)"_s));
    });
    row->addStretch(1);
    add("returnsPrint", u"一覧を印刷(&R)…"_s, [this] { printList(); });
    add("returnsPdf", u"一覧を PDF に(&D)…"_s, [this] { savePdf(); });
    add("returnsCsv", u"一覧を CSV に(&V)…"_s, [this] { saveCsv(); });
    add("returnsClose", u"閉じる(&C)"_s, [this] { accept(); });
    layout->addLayout(row);
}

/// The missing letters that are shown.
std::vector<PrintedLetter> ReturnsWindow::missing() const
{
    return missingOf(m_model.shown());
}

QString ReturnsWindow::heading() const
{
    const QString insurer = m_insurer->currentData().toString();
    return u"返送されていない委任状　%1　%2%3通"_s
        .arg(m_period->currentText(), insurer.isEmpty() ? u""_s : insurer + u"　"_s)
        .arg(missing().size());
}

void ReturnsWindow::save(const QString &ending, const std::function<void(const std::string &path)> &write)
{
    const QString name = u"返送されていない委任状_%1%2"_s.arg(m_period->currentText(), ending);
    const QString path = m_services.askListFile(this, m_settings.pdfFolder(), name);
    if (path.isEmpty()) return;
    m_settings.setPdfFolder(QFileInfo(path).absolutePath());
    (void)m_settings.save(); // unwritable settings must not prevent saving
    try {
        write(utf8Text(path));
        m_result->setText(u"「%1」に保存しました。"_s.arg(path));
    } catch (const RuntimeError &error) {
        m_services.showMessage(this, QMessageBox::Warning, qtText(error.description()));
    }
}

void ReturnsWindow::savePdf()
{
    save(u".pdf"_s, [this](const std::string &path) {
        const LetterSet set = missingPages(missing(), utf8Text(heading()));
        Fonts fonts;
        LetterRenderer renderer(set, fonts);
        std::vector<std::size_t> all(set.size());
        std::iota(all.begin(), all.end(), std::size_t{0});
        writeLettersPdf(path, renderer, all, {}, {PdfPurpose::reading, {}, utf8Text(heading())});
    });
}

void ReturnsWindow::saveCsv()
{
    save(u".csv"_s,
         [this](const std::string &path) { writeWholeFile(pathOf(path), missingCsv(missing()), NewFile::ownerOnly); });
}

void ReturnsWindow::printList()
{
    const LetterSet set = missingPages(missing(), utf8Text(heading()));
    LetterTicks pages(set.size());
    PrintDialog dialog(pages, m_settings, m_services.printers(), this);
    dialog.setWindowTitle(u"印刷（返送されていない委任状の一覧）"_s);
    dialog.hideLetterChoices();
    if (dialog.exec() != QDialog::Accepted) return;
    Fonts fonts;
    QtGlyphs glyphs;
    const std::string fault = printPages(set, fonts, glyphs, dialog.order(), m_services.paths);
    m_result->setText(fault.empty() ? u"一覧をプリンターに送りました。"_s : qtText(fault));
}

} // namespace inin::viewer
