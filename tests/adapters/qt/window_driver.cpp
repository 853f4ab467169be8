#include "adapters/qt/window_driver.h"

#include "adapters/posix/posix_platform.h"
#include "adapters/qt/form_window.h"
#include "adapters/qt/qt_message_boxes.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/qt_windows.h"
#include "adapters/qt/robot.h"
#include "adapters/script/recording_database.h"
#include "adapters/script/script_clock.h"
#include "adapters/script/script_platform.h"
#include "adapters/sqlite/sqlite_database.h"
#include "runtime/runtime_error.h"
#include "shell/start.h"

#include <QApplication>

#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace inin {

namespace {

/// Tells of each window that comes up or goes away, as the toolkit tells of it.
class WindowWatch : public QObject {
public:
    explicit WindowWatch(Transcript &transcript) : m_transcript(transcript)
    {
        QApplication::instance()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isShow = event->type() == QEvent::Show;
        if ((isShow || event->type() == QEvent::Hide) && !event->spontaneous() &&
            dynamic_cast<FormWindow *>(watched) != nullptr)
            m_transcript.write({{"event", "window"}, {"name", fromQt(watched->objectName())}, {"shown", isShow}});
        return false;
    }

private:
    Transcript &m_transcript;
};

/// The boxes are told, shown for real, and answered by the robot.
class ToldBoxes : public MessageBoxes {
public:
    ToldBoxes(Transcript &transcript, EventEdge &edge) : m_told(transcript), m_real(edge) {}
    void show(const std::string &text, Icon icon, const std::string &title) override
    {
        m_told.show(text, icon, title);
        m_real.show(text, icon, title);
    }

private:
    ScriptBoxes m_told;
    QtMessageBoxes m_real;
};

class ToldWindows : public Windows {
public:
    ToldWindows(QtWindows &real, Transcript &transcript, Robot &robot)
        : m_real(real), m_transcript(transcript), m_robot(robot)
    {
    }
    void show(Form &form, Modality modality) override
    try {
        form.onMousePointer = [this](std::int16_t kind) { m_transcript.write({{"event", "pointer"}, {"kind", kind}}); };
        m_real.show(form, modality);
    } catch (const UnhandledError &unhandled) {
        // Told before the program's objects are torn down on the way out.
        m_transcript.fatal(unhandled.error().number(), unhandled.error().description());
        throw;
    }
    void checkPicture(const std::string &path) override { m_real.checkPicture(path); }
    void beep() override
    {
        m_transcript.write({{"event", "beep"}});
        m_real.beep();
    }
    void giveTime() override
    {
        m_robot.wait();
        m_real.giveTime();
        m_robot.goOn();
    }
    void moveFocus(Form &form, Control &control) override { m_real.moveFocus(form, control); }
    void sendTab(Form &form) override { m_real.sendTab(form); }
    Control *activeControl(Form &form) override { return m_real.activeControl(form); }

private:
    QtWindows &m_real;
    Transcript &m_transcript;
    Robot &m_robot;
};

[[noreturn]] void endOfAnother()
{
    throw std::logic_error("the end statement went past the play");
}

/// The program with real windows over the play's site.
class Stage {
public:
    Stage(const Play &play, const TemporarySite &site, std::ostringstream &text)
        : m_play(play), m_transcript(text), m_files(makePosixFiles(site.folder().string())),
          m_sqlite(makeSqliteDatabase([&site](const std::string &source) { return site.at(source).string(); })),
          m_database(*m_sqlite, m_transcript),
          m_robot(
              play, m_transcript, [&text] { return text.str().size(); }, m_locale->regional())
    {
    }

    [[nodiscard]] int run()
    try {
        StandingClock clock(readMoment(m_play.now).value());
        EventEdge edge;
        QtWindows windows(*m_files, {edge, [&clock] { return clock.today(); }, posixPath});
        ToldBoxes boxes(m_transcript, edge);
        ToldWindows told(windows, m_transcript, m_robot);
        ScriptProcesses processes(m_transcript, makePosixProcesses(endOfAnother), m_play.startProcesses);
        App app(Platform{boxes, told, m_database, *m_profile, *m_files, processes, clock, *m_locale, *m_automation});
        m_robot.sitDown(windows);
        Main(app);
        return kPlayedToTheEnd;
    } catch (const ScriptEnded &) {
        return kPlayedToTheEnd;
    } catch (const UnhandledError &) {
        return kPlayBroke; // told where it ended the windows
    }

    [[nodiscard]] const Robot &robot() const { return m_robot; }

private:
    const Play &m_play;
    Transcript m_transcript;
    std::unique_ptr<Profile> m_profile = makePosixProfile();
    std::unique_ptr<Files> m_files;
    std::unique_ptr<Locale> m_locale = makePosixLocale();
    std::unique_ptr<Automation> m_automation = makeNoAutomation();
    std::unique_ptr<Database> m_sqlite;
    RecordingDatabase m_database;
    Robot m_robot;
    WindowWatch m_watch{m_transcript};
};

std::vector<std::vector<std::string>> stepsOf(const std::string &transcript, std::vector<std::size_t> marks)
{
    std::vector<std::vector<std::string>> steps;
    std::size_t begin = 0;
    marks.push_back(transcript.size());
    for (const std::size_t end : marks) {
        std::istringstream part(transcript.substr(begin, end - begin));
        std::vector<std::string> &lines = steps.emplace_back();
        for (std::string line; std::getline(part, line);) lines.push_back(line);
        begin = end;
    }
    return steps;
}

} // namespace

PlayRecord WindowDriver::run(const Play &play, const TemporarySite &site)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::ostringstream text;
    PlayRecord record;
    {
        Stage stage(play, site, text);
        record.exitCode = stage.run();
        record.events = stepsOf(text.str(), stage.robot().marks());
        record.errors = stage.robot().errors();
    }
    std::filesystem::current_path(before);
    return record;
}

} // namespace inin
