// Writes a picture of each window of the form viewer: viewer_screenshots SCRIPT FOLDER [--dark] [--as-opened]. The letters
// are those of the script; the printer is invented. With --as-opened, the window has the size that fits the screen.

#include "desktop_theme/theme.h"
#include "support/save_picture.h"
#include "viewer/window/viewer_style.h"
#include "viewer/window/viewer_window.h"

#include <QApplication>
#include <QTimer>
#include <QtTest/QTest>

#include <cstdio>

using namespace inin::viewer;
using namespace Qt::StringLiterals;

namespace {

ViewerServices servicesWithPrinter()
{
    ViewerServices services = realServices();
    services.printers = [] {
        return std::vector<PrinterChoice>{{u"事務所のプリンター"_s, {}, true, QPrinter::DuplexLongSide}};
    };
    services.settingsFile = u"/dev/null"_s;
    return services;
}

enum class WindowSize { forAll, asOpened };

class ViewerPhotographer {
public:
    ViewerPhotographer(const std::string &script, QString folder, QString ending)
        : m_window(script, std::make_unique<OpenLetters>(script), servicesWithPrinter()), m_folder(std::move(folder)),
          m_ending(std::move(ending))
    {
    }
    void run(WindowSize size)
    {
        constexpr QSize kRoomForAll(1180, 860);
        if (size == WindowSize::forAll) m_window.resize(kRoomForAll);
        m_window.show();
        QTest::qWait(100);
        m_window.finishCheck();
        take(m_window, u"viewer"_s);
        inDialog([this] { m_window.askPrint(); }, u"viewer-print"_s);
        inDialog([this] { m_window.askPdf(); }, u"viewer-pdf"_s);
    }

private:
    void take(QWidget &widget, const QString &name)
    {
        QTest::qWait(50); // lets pending paint events run
        const QString file = m_folder + u"/"_s + name + m_ending + u".png"_s;
        if (!inin::savePicture(widget.grab(), file)) std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
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
};

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("usage: viewer_screenshots SCRIPT FOLDER [--dark] [--as-opened]\n", stderr);
        return 2;
    }
    const bool dark = arguments.contains(u"--dark"_s);
    if (dark) QApplication::setPalette(inin::theme::darkPalette());
    applyStyle(application);
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s);
    const QString ending = (scale == u"1"_s ? QString() : u"@%1x"_s.arg(scale)) + (dark ? u"-dark"_s : QString());
    ViewerPhotographer(arguments[1].toStdString(), arguments[2], ending)
        .run(arguments.contains(u"--as-opened"_s) ? WindowSize::asOpened : WindowSize::forAll);
    return 0;
}
