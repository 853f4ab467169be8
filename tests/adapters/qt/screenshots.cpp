// Writes a screenshot of each window of the program on a site: screenshots SITE FOLDER [--dark] [--captions FILE]. The windows are the
// real ones over the site's database; the clock is stopped, so that two runs give the same pictures. With --captions,
// the windows are shown with the captions of this document.

#include "adapters/native/native_platform.h"
#include "adapters/qt/date_edit.h"
#include "adapters/qt/font_reading.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/units.h"
#include "adapters/qt/window_fixture.h"
#include "adapters/sqlite/sqlite_database.h"
#include "adapters/suite/data_source.h"
#include "common/folder_form.h"
#include "desktop_theme/application_icon.h"
#include "desktop_theme/theme.h"
#include "shell/start.h"
#include "shell/version_form.h"
#include "shell/wait_form.h"
#include "support/fake_folders.h"
#include "support/save_picture.h"
#include "support/tour_captions.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QTableView>
#include <QtTest/QTest>

#include <cstdio>
#include <filesystem>
#include <memory>

using namespace inin;
using namespace inin::sqlite;
using namespace inin::qt;

namespace {

class Photographer {
public:
    Photographer(const std::filesystem::path &site, std::string folder, std::string ending, const QString &captions)
        : m_files(makeSystemFiles(site.string())), m_database(makeSqliteDatabase(dataSourceIn(site.string()))),
          m_windows(*m_files, m_services, m_turns),
          m_app(Platform{m_boxes, m_windows, *m_database, *m_profile, *m_files, m_world.processes, m_world.clock,
                         *m_locale, m_world.automation}),
          m_folder(std::move(folder)), m_ending(std::move(ending)), m_captions(captions)
    {
        m_world.clock.current = dateOf({2026, 11, 20, 9, 30, 0});
    }

    void run()
    try {
        plan();
        Main(m_app);
    } catch (const ProcessEnded &) {
        std::fputs(m_turns.failure().c_str(), stderr);
    }

private:
    void plan()
    {
        m_turns.then([this] { takeTop("conditions"); });
        m_turns.then([this] { click("optPrint(1)"); });
        m_turns.then([this] { takeTop("conditions-aichi"); });
        m_turns.then([this] { click("optPrint(0)"); });
        m_turns.then([this] { typeWrongDate(); });
        m_turns.then([this] { takeTop("conditions-unreadable-date"); });
        m_turns.then([this] { takeCalendar("imSetDateFrom", "calendar"); });
        m_turns.then([this] { takeCalendar("imD_Out", "calendar-months"); });
        m_turns.then([this] { click("btn_StaffSelect"); });
        m_turns.then([this] {
            takeTop("staff-search");
            closeTop();
        });
        m_turns.then([this] { click("btn_KanjaSelect"); });
        m_turns.then([this] {
            chooseRow();
            takeTop("patient-search");
            closeTop();
        });
        m_turns.then([this] { m_boxes.show("該当する患者データがありません。", Icon::information, "情報"); });
        m_turns.then([this] {
            take(*QApplication::activeModalWidget(), "box");
            answerTopBox();
        });
        m_turns.then([this] { takeNotice(); });
        m_turns.then([this] { takeVersion(); });
        m_turns.then([this] { takeFolders(); });
        m_turns.then([this] { takeBackground(); });
        m_turns.then([this] { closeTop(); });
    }

    void take(QWidget &widget, const std::string &name)
    {
        m_turns.hold([] { QTest::qWait(20); }); // waits until everything scheduled is painted
        const std::string file = m_folder + "/" + name + m_ending + ".png";
        if (!savePicture(widget.grab(), toQt(file))) std::fprintf(stderr, "cannot write %s\n", file.c_str());
        m_turns.hold([&] { m_captions.show(toQt(name)); });
    }
    [[nodiscard]] FormWindow &top() const { return *m_windows.topWindow(); }
    void takeTop(const std::string &name) { take(top(), name); }
    void click(const char *control) { top().widgetAs<QAbstractButton>(control).click(); }
    void closeTop() { top().close(); }
    void typeWrongDate()
    {
        auto &box = top().widgetAs<DateEdit>("imD_LastDay");
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, "R8.11.31");
        box.commit();
    }
    void takeCalendar(const char *control, const std::string &name)
    {
        auto &box = top().widgetAs<DateEdit>(control);
        box.openCalendar();
        auto *calendar = box.findChild<QFrame *>("calendar");
        take(*calendar, name);
        calendar->close();
    }
    void chooseRow() { top().widgetAs<QTableView>("spr_1ran").selectRow(3); }
    /// Opens the notice, which the program itself does not open and which closes by itself.
    void takeNotice()
    {
        frmWaitMsg notice(m_app);
        notice.laMsg.Caption = "しばらくお待ちください。";
        FormWindow window(notice, m_services, nullptr);
        window.open();
        notice.Width = twips(window.content().width());
        notice.Form_Resize();
        take(window, "notice");
    }
    void takeVersion()
    {
        frmVer version(m_app);
        version.load();
        version.laVer.Caption = "委任状印刷";
        FormWindow window(version, m_services, nullptr);
        window.open();
        take(window, "version");
    }
    /// Opens the folder selection, which the program itself does not open.
    void takeFolders()
    {
        FakeFolders folders;
        folders.paths.insert(folders.paths.end(), {"C:\\SUITE\\TMP\\写真", "C:\\SUITE\\TMP\\地図"});
        m_world.files.changeFolder("C:\\SUITE\\TMP");
        frmSelFolder select(m_world.platform, folders);
        select.load();
        FormWindow window(select, m_services, nullptr);
        window.open();
        take(window, "folders");
    }
    void takeBackground()
    {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (window->objectName() == "frmBack") take(*window, "background");
    }

    FakeWorld m_world;
    EventEdge m_edge;
    std::unique_ptr<Files> m_files;
    std::unique_ptr<Profile> m_profile = makeSystemProfile();
    std::unique_ptr<Locale> m_locale = makeSystemLocale();
    std::unique_ptr<Database> m_database;
    ViewServices m_services{m_edge, [this] { return m_world.clock.today(); }, systemPath};
    Turns m_turns;
    TurnWindows m_windows;
    QtMessageBoxes m_boxes{m_edge};
    App m_app;
    std::string m_folder;
    std::string m_ending;
    TourCaptions m_captions;
};

/// The icon of the programs, for the files of the Windows programs.
void saveIcons(const QString &folder)
{
    for (const int side : {16, 24, 32, 48, 64, 256}) {
        const QString file = QStringLiteral("%1/icon-%2.png").arg(folder).arg(side, 3, 10, QLatin1Char('0'));
        if (!theme::applicationIcon().pixmap(QSize(side, side), 1.0).save(file))
            std::fprintf(stderr, "cannot write %s\n", fromQt(file).c_str());
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("usage: screenshots SITE FOLDER [--dark] [--captions FILE]\n", stderr);
        return 2;
    }
    const bool dark = arguments.contains("--dark");
    if (dark) QApplication::setPalette(theme::darkPalette());
    theme::applyTheme(application);
    FontReading().finish();
    const std::string scale = fromQt(qEnvironmentVariable("QT_SCALE_FACTOR", "1"));
    const std::string ending = (scale == "1" ? "" : "@" + scale + "x") + (dark ? std::string("-dark") : "");
    if (ending.empty()) saveIcons(arguments[2]); // before the program changes the current folder
    const qsizetype captions = arguments.indexOf(QStringLiteral("--captions"));
    Photographer(std::filesystem::canonical(fromQt(arguments[1])),
                 std::filesystem::absolute(fromQt(arguments[2])).string(), ending,
                 captions < 0 ? QString() : arguments.value(captions + 1))
        .run();
    return 0;
}
