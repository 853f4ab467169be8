// Writes a picture of each window of the form viewer: viewer_screenshots SCRIPT FOLDER [--dark] [--as-opened] [--ledger FILE]
// [--captions FILE].
// The letters are those of the script; the printer is invented. The ledger is a new one, or one to which each call adds its
// print. With --as-opened, the window has the size that fits the screen. With --captions, the windows are shown with the
// captions of this document.

#include "desktop_theme/theme.h"
#include "support/save_picture.h"
#include "support/tour_captions.h"
#include "viewer/window/viewer_style.h"
#include "viewer/window/viewer_window.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QTest>

#include <cstdio>

using namespace inin::viewer;
using namespace Qt::StringLiterals;

namespace {

ViewerServices inventedServices(const QString &ledgerFile, const QTemporaryDir &empty)
{
    ViewerServices services = realServices();
    services.printers = [] {
        return std::vector<PrinterChoice>{{u"事務所のプリンター"_s, {}, true, QPrinter::DuplexLongSide}};
    };
    services.settingsFile = empty.filePath(u"settings.ini"_s);
    services.paths.spool = [](const SpoolJob &, const std::function<bool()> &) {
        return SpoolResult{SpoolResult::End::taken, {}, "1"};
    };
    services.ledgerPath = [file = ledgerFile.toStdString()](const LedgerSettings &) { return file; };
    return services;
}

enum class WindowSize { forAll, asOpened };

class ViewerPhotographer {
public:
    ViewerPhotographer(const std::string &script, QString folder, QString ending, const QString &ledger,
                       const QTemporaryDir &empty, const QString &captions)
        : m_window(script, std::make_unique<OpenLetters>(script), inventedServices(ledger, empty)),
          m_folder(std::move(folder)), m_ending(std::move(ending)), m_captions(captions)
    {
    }
    void run(WindowSize size)
    {
        constexpr QSize kRoomForAll(1180, 860);
        constexpr int kLastGood = 120;
        if (size == WindowSize::forAll) m_window.resize(kRoomForAll);
        m_window.show();
        QTest::qWait(100);
        m_window.finishCheck();
        take(m_window, u"viewer"_s);
        inDialog([this] { m_window.askPrint(); }, u"viewer-print"_s);
        inDialog([this] { m_window.askPdf(); }, u"viewer-pdf"_s);
        inDialog([this] { m_window.findChild<QAction *>(u"ledgerSettings"_s)->trigger(); },
                 u"viewer-ledger-settings"_s);
        PrintOrder order;
        order.printer = u"事務所のプリンター"_s;
        m_window.print(order);
        take(m_window, u"viewer-ledger"_s);
        m_window.findChild<QAbstractButton *>(u"paperPartly"_s)->click();
        m_window.findChild<QSpinBox *>(u"paperNumber"_s)->setValue(kLastGood);
        m_window.findChild<QAbstractButton *>(u"paperSet"_s)->click();
        take(m_window, u"viewer-rest"_s);
    }

private:
    void take(QWidget &widget, const QString &name)
    {
        QTest::qWait(50); // lets pending paint events run
        const QString file = m_folder + u"/"_s + name + m_ending + u".png"_s;
        if (!inin::savePicture(widget.grab(), file)) std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        m_captions.show(name);
    }
    /// A dialog runs its own event loop until it is closed.
    template <class Ask> void inDialog(const Ask &ask, const QString &name)
    {
        QTimer::singleShot(100, &m_window, [this, name] {
            QWidget *const dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            take(*dialog, name);
            dialog->close();
        });
        ask();
    }

    ViewerWindow m_window;
    QString m_folder, m_ending;
    inin::TourCaptions m_captions;
};

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("usage: viewer_screenshots SCRIPT FOLDER [--dark] [--as-opened] [--ledger FILE] [--captions FILE]\n",
                   stderr);
        return 2;
    }
    const bool dark = arguments.contains(u"--dark"_s);
    if (dark) QApplication::setPalette(inin::theme::darkPalette());
    applyStyle(application);
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s);
    const QString ending = (scale == u"1"_s ? QString() : u"@%1x"_s.arg(scale)) + (dark ? u"-dark"_s : QString());
    const QTemporaryDir empty;
    const qsizetype ledger = arguments.indexOf(u"--ledger"_s);
    const qsizetype captions = arguments.indexOf(u"--captions"_s);
    ViewerPhotographer(arguments[1].toStdString(), arguments[2], ending,
                       ledger < 0 ? empty.filePath(u"台帳.db"_s) : arguments.value(ledger + 1), empty,
                       captions < 0 ? QString() : arguments.value(captions + 1))
        .run(arguments.contains(u"--as-opened"_s) ? WindowSize::asOpened : WindowSize::forAll);
    return 0;
}
