#include "viewer/returns/returned_text.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/returns_window.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>

#include <span>

// Letters that come back by their codes: typed, from a hand scanner, and read from scanned pages.

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kThumbnailHeight = 150;

QStringList filesOf(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls())
        if (url.isLocalFile()) paths << url.toLocalFile();
    return paths;
}

} // namespace

void ReturnsWindow::buildScans(QBoxLayout *layout)
{
    m_code = new QLineEdit(this);
    m_code->setObjectName(u"returnsCode"_s);
    m_code->setPlaceholderText(u"スキャナーで読むか、入力して Enter"_s);
    // The keyboard of a scanner must not go through the conversion of Japanese input.
    m_code->setAttribute(Qt::WA_InputMethodEnabled, false);
    QObject::connect(m_code, &QLineEdit::returnPressed, this, [this] { markTyped(); });
    auto *const label = new QLabel(u"整理番号(&N)"_s, this);
    label->setBuddy(m_code);
    m_stop = new QPushButton(u"読み取りを中止(&X)"_s, this);
    m_stop->setObjectName(u"returnsStop"_s);
    m_stop->setAutoDefault(false);
    m_stop->hide();
    QObject::connect(m_stop, &QPushButton::clicked, this, [this] { m_reader.stop(); });
    auto *const row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_code, 1);
    row->addWidget(m_stop);
    layout->addLayout(row);
    m_result = new QLabel(this);
    m_result->setObjectName(u"returnsResult"_s);
    m_result->setWordWrap(true);
    m_result->setText(
        canReadScans()
            ? u"戻ってきた委任状を読み取ったファイル（PDF、PNG、JPEG、TIFF）を、この画面に落とすこともできます。"_s
            : qtText(kNoScans));
    layout->addWidget(m_result);
}

void ReturnsWindow::buildUnreadable(QBoxLayout *layout)
{
    m_unreadableTitle =
        new QLabel(u"確かめるページ（戻ってきた委任状なら、上の一覧で、手でチェックしてください）"_s, this);
    m_unreadable = new QListWidget(this);
    m_unreadable->setObjectName(u"returnsUnreadable"_s);
    m_unreadable->setViewMode(QListView::IconMode);
    m_unreadable->setIconSize({kThumbnailHeight, kThumbnailHeight});
    m_unreadable->setMovement(QListView::Static);
    m_unreadable->setMaximumHeight(kThumbnailHeight + 60);
    m_unreadableTitle->hide();
    m_unreadable->hide();
    layout->addWidget(m_unreadableTitle);
    layout->addWidget(m_unreadable);
}

void ReturnsWindow::followReader()
{
    m_reader.onUnreadable = [this](const std::string &file, int page, const QImage &thumbnail) {
        showUnreadable(u"%1　%2ページ"_s.arg(QFileInfo(qtText(file)).fileName()).arg(page), thumbnail);
    };
    m_reader.onFault = [this](const std::string &sentence) { showUnreadable(qtText(sentence), {}); };
    m_reader.onMarked = [this](std::size_t first) {
        const std::vector<ReturnedPage> &pages = m_reader.pages().pages();
        for (ReturnedPage page : std::span(pages).subspan(first)) {
            if (!page.needsAttention() || page.code.empty()) continue;
            page.file = utf8Text(QFileInfo(qtText(page.file)).fileName());
            showUnreadable(qtText(returnedLine(page)), {});
        }
        reload();
        if (onReturned) onReturned();
    };
    m_reader.onProgress = [this](const std::string &file, int page, int pages) {
        m_stop->setVisible(pages > 0);
        if (pages == 0) return m_result->setText(qtText(returnedSummary(m_reader.pages())));
        m_result->setText(
            u"読み取っています：%1　%2／%3ページ"_s.arg(QFileInfo(qtText(file)).fileName()).arg(page).arg(pages));
    };
}

void ReturnsWindow::showUnreadable(const QString &words, const QImage &thumbnail)
{
    auto *const item = new QListWidgetItem(words, m_unreadable);
    if (!thumbnail.isNull()) item->setIcon(QPixmap::fromImage(thumbnail));
    m_unreadableTitle->show();
    m_unreadable->show();
}

void ReturnsWindow::markTyped()
{
    const std::string typed[] = {utf8Text(m_code->text())};
    m_code->clear();
    if (typed[0].empty()) return;
    const ReturnedCode result = m_ledger.markReturned(typed, m_services.now()).at(0);
    const QString letter = qtText(result.insurer + "　" + result.patient);
    m_result->setText(u"%1：%2%3"_s.arg(qtText(typed[0]), QString::fromUtf8(wordsOf(result.result).sentence),
                                        result.letter ? u"（%1）"_s.arg(letter) : QString()));
    reload();
    if (result.result == CodeResult::marked && onReturned) onReturned();
}

void ReturnsWindow::readFiles(const QStringList &paths)
{
    if (!canReadScans()) return m_result->setText(qtText(kNoScans));
    for (const QString &path : paths) m_reader.add(utf8Text(path));
}

void ReturnsWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!filesOf(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void ReturnsWindow::dropEvent(QDropEvent *event)
{
    readFiles(filesOf(*event->mimeData()));
    event->acceptProposedAction();
}

} // namespace inin::viewer
