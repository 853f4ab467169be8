#include "adapters/qt/window_driver.h"

#include "adapters/native/native_platform.h"
#include "adapters/native/no_automation.h"
#include "adapters/qt/form_window.h"
#include "adapters/qt/qt_message_boxes.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/qt_windows.h"
#include "adapters/qt/robot.h"
#include "adapters/script/recording_ports.h"
#include "adapters/script/script_platform.h"
#include "adapters/sqlite/sqlite_database.h"
#include "runtime/runtime_error.h"
#include "shell/start.h"

#include <QApplication>

#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace inin::qt {

using namespace script;

using namespace sqlite;

namespace {

/// Records each window that the toolkit shows or hides.
class WindowWatch : public QObject {
public:
    WindowWatch() { QApplication::instance()->installEventFilter(this); }
    [[nodiscard]] const std::string &seen() const { return m_seen; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isShow = event->type() == QEvent::Show;
        if ((isShow || event->type() == QEvent::Hide) && !event->spontaneous() &&
            dynamic_cast<FormWindow *>(watched) != nullptr)
            m_seen += fromQt(watched->objectName()) + (isShow ? " shown\n" : " gone\n");
        return false;
    }

private:
    std::string m_seen;
};

/// The windows recorded in a transcript, in the format of WindowWatch.
std::string recordedWindows(const std::string &transcript)
{
    std::string result;
    std::istringstream lines(transcript);
    for (std::string line; std::getline(lines, line);) {
        const Json event = Json::parse(line);
        if (event["event"] == "window")
            result += event["name"].get<std::string>() + (event["shown"].get<bool>() ? " shown\n" : " gone\n");
    }
    return result;
}

/// Pauses the robot while the program only processes waiting events.
class PatientWindows : public QtWindows {
public:
    PatientWindows(Files &files, ViewServices services, Robot &robot)
        : QtWindows(files, std::move(services)), m_robot(robot)
    {
    }
    void processWaitingEvents() override
    {
        m_robot.wait();
        QtWindows::processWaitingEvents();
        m_robot.goOn();
    }

private:
    Robot &m_robot;
};

[[noreturn]] void endOfAnother()
{
    throw std::logic_error("the end statement went past the play");
}

/// The program with real windows on the play's site.
class Stage {
public:
    Stage(const Play &play, const TemporarySite &site, std::ostringstream &text)
        : m_play(play), m_transcript(text), m_files(makeSystemFiles(site.folder().string())),
          m_sqlite(makeSqliteDatabase([&site](const std::string &source) { return site.at(source).string(); })),
          m_database(*m_sqlite, m_transcript),
          m_robot(
              play, m_transcript, [&text] { return text.str().size(); }, m_locale->regional())
    {
    }

    [[nodiscard]] int run()
    try {
        StoppedClock clock(readMoment(m_play.now).value());
        EventEdge edge;
        PatientWindows windows(*m_files, {edge, [&clock] { return clock.today(); }, systemPath}, m_robot);
        RecordingWindows recordingWindows(m_transcript, windows);
        QtMessageBoxes realBoxes(edge);
        RecordingBoxes boxes(m_transcript, realBoxes);
        ScriptProcesses starts(makeSystemProcesses(endOfAnother), m_play.startProcesses);
        RecordingProcesses processes(m_transcript, starts);
        App app(Platform{boxes, recordingWindows, m_database, *m_profile, *m_files, processes, clock, *m_locale,
                         *m_automation});
        m_robot.sitDown(windows);
        Main(app);
        return kPlayedToTheEnd;
    } catch (const ScriptEnded &) {
        return kPlayedToTheEnd;
    } catch (const UnhandledError &) {
        return kPlayBroke; // reported where it ended the windows
    }

    [[nodiscard]] const Robot &robot() const { return m_robot; }
    [[nodiscard]] const std::string &seenWindows() const { return m_watch.seen(); }

private:
    const Play &m_play;
    Transcript m_transcript;
    std::unique_ptr<Profile> m_profile = makeSystemProfile();
    std::unique_ptr<Files> m_files;
    std::unique_ptr<Locale> m_locale = makeSystemLocale();
    std::unique_ptr<Automation> m_automation = makeNoAutomation();
    std::unique_ptr<Database> m_sqlite;
    RecordingDatabase m_database;
    Robot m_robot;
    WindowWatch m_watch;
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
    const CurrentFolder keep; // the program changes the current folder
    std::ostringstream text;
    PlayRecord record;
    {
        Stage stage(play, site, text);
        record.exitCode = stage.run();
        record.events = stepsOf(text.str(), stage.robot().marks());
        record.errors = stage.robot().errors();
        record.ranOutOfCommands = stage.robot().ranOut();
        if (stage.seenWindows() != recordedWindows(text.str()))
            record.errors += "seen were other windows:\n" + stage.seenWindows();
    }
    return record;
}

} // namespace inin::qt
