#include "viewer/window/help_window.h"

#include "viewer/window/help_page.h"
#include "viewer/window/screen_fit.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QFile>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QToolTip>
#include <QUrl>
#include <QVBoxLayout>

/// The resources of a static library are registered by name.
static void registerManual()
{
    Q_INIT_RESOURCE(manual);
}

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kFirstSize(900, 700);
constexpr int kCellPadding = 5, kWidestPicture = 800;
constexpr auto kName = "helpWindow"_L1;

QString manual()
{
    registerManual();
    QFile file(u":/manual/manual.md"_s);
    return file.open(QIODevice::ReadOnly) ? joinedLines(QString::fromUtf8(file.readAll())) : QString();
}

/// Tables of Markdown have no lines of their own.
void drawTables(QTextDocument &document)
{
    for (QTextFrame *const frame : document.rootFrame()->childFrames()) {
        auto *const table = dynamic_cast<QTextTable *>(frame);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setCellPadding(kCellPadding);
        table->setFormat(format);
    }
}

/// Shows pictures no wider than the window.
void fitPictures(QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            QTextImageFormat format = piece.fragment().charFormat().toImageFormat();
            if (!format.isValid() || QImage(u":/manual/"_s + format.name()).width() <= kWidestPicture) continue;
            format.setWidth(kWidestPicture);
            QTextCursor cursor(&document);
            cursor.setPosition(piece.fragment().position());
            cursor.setPosition(piece.fragment().position() + piece.fragment().length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
            break; // the iterator is no longer valid
        }
    }
}

} // namespace

HelpWindow::HelpWindow(QWidget *owner)
    : QWidget(owner, Qt::Window), m_text(new QTextBrowser(this)), m_find(new QLineEdit(this))
{
    setObjectName(kName);
    setWindowTitle(u"利用者の手引き"_s);
    resize(fitWindow(kFirstSize, owner->screen()->availableSize()).size);
    m_text->setSearchPaths({u":/manual"_s});
    m_text->setOpenLinks(false);
    m_text->document()->setMarkdown(manual(), QTextDocument::MarkdownDialectGitHub);
    drawTables(*m_text->document());
    fitPictures(*m_text->document());
    QObject::connect(m_text, &QTextBrowser::anchorClicked, this, [this](const QUrl &link) { open(link); });
    m_find->setAccessibleName(u"手引きの中で探す言葉"_s);
    m_find->setPlaceholderText(u"手引きの中を検索"_s);
    m_find->setClearButtonEnabled(true);
    QObject::connect(m_find, &QLineEdit::returnPressed, this, [this] { find(); });
    auto *const contents = new QPushButton(u"目次(&C)"_s, this);
    QObject::connect(contents, &QPushButton::clicked, this, [this] { m_text->verticalScrollBar()->setValue(0); });
    auto *const close = new QPushButton(u"閉じる"_s, this);
    QObject::connect(close, &QPushButton::clicked, this, [this] { this->close(); });
    new QShortcut(QKeySequence(Qt::Key_Escape), this, [this] { this->close(); });
    new QShortcut(QKeySequence(QKeySequence::Find), this, [this] { m_find->setFocus(Qt::ShortcutFocusReason); });
    auto *const row = new QHBoxLayout;
    row->addWidget(contents);
    row->addWidget(m_find, 1);
    row->addWidget(close);
    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(m_text, 1);
    m_text->setFocus();
}

bool HelpWindow::showHeading(const QString &heading)
{
    return follow(QUrl(u'#' + headingAnchor(heading)));
}

bool HelpWindow::follow(const QUrl &link)
{
    if (!link.path().isEmpty()) return false;
    const QString anchor = link.fragment(QUrl::FullyDecoded);
    const QTextDocument &document = *m_text->document();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || headingAnchor(block.text()) != anchor) continue;
        m_text->setTextCursor(QTextCursor(block));
        // The heading at the top, not anywhere in sight. Before the first painting the layout has no width.
        m_text->document()->setTextWidth(m_text->viewport()->width());
        const qreal top = m_text->document()->documentLayout()->blockBoundingRect(block).top();
        m_text->verticalScrollBar()->setValue(static_cast<int>(top));
        return true;
    }
    return false;
}

void HelpWindow::open(const QUrl &link)
{
    if (follow(link)) return;
    const QString words = link.isRelative() ? u"この文書は、プログラムの guide フォルダーにあります：%1"_s.arg(
                                                  link.fileName().replace(u".md"_s, u".html"_s))
                                            : link.toString();
    QToolTip::showText(QCursor::pos(), words, this);
}

void HelpWindow::find()
{
    if (m_text->find(m_find->text())) return;
    m_text->moveCursor(QTextCursor::Start); // once around
    m_text->find(m_find->text());
}

void addHelpKey(QWidget *window)
{
    new QShortcut(QKeySequence(QKeySequence::HelpContents), window, [window] {
        QWidget *const focus = window->focusWidget();
        showHelp(focus != nullptr ? focus : window);
    });
}

void showHelp(QWidget *place)
{
    QWidget *const owner = place->window();
    auto *help = static_cast<HelpWindow *>(owner->findChild<QWidget *>(kName, Qt::FindDirectChildrenOnly));
    if (help == nullptr) help = new HelpWindow(owner);
    help->show();
    help->showHeading(helpHeading(place));
    help->raise();
    help->activateWindow();
}

} // namespace inin::viewer
