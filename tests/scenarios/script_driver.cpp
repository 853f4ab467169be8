#include "scenarios/script_driver.h"

#include "adapters/native/native_platform.h"
#include "adapters/script/script_player.h"
#include "adapters/sqlite/sqlite_database.h"
#include "shell/start.h"

#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <streambuf>

namespace inin {

using namespace script;

using namespace sqlite;

namespace {

/// Supplies the commands one by one and records the length of the transcript at each request: the events before it
/// belong to the previous steps.
class CommandFeed : public std::streambuf {
public:
    CommandFeed(const Play &play, const std::ostringstream &transcript, std::function<void(std::size_t)> onCommand)
        : m_play(play), m_transcript(transcript), m_onCommand(std::move(onCommand))
    {
    }
    [[nodiscard]] const std::vector<std::size_t> &marks() const { return m_marks; }
    [[nodiscard]] bool ranOut() const { return m_ranOut; }

protected:
    int_type underflow() override
    {
        if (m_next == m_play.steps.size()) {
            m_ranOut = true;
            return traits_type::eof();
        }
        m_marks.push_back(m_transcript.str().size());
        if (m_onCommand) m_onCommand(m_next);
        const PlayStep &step = m_play.steps[m_next++];
        if (step.isEndOfCommands()) return traits_type::eof();
        m_line = step.command + "\n";
        setg(m_line.data(), m_line.data(), m_line.data() + m_line.size());
        return traits_type::to_int_type(m_line.front());
    }

private:
    const Play &m_play;
    const std::ostringstream &m_transcript;
    std::function<void(std::size_t)> m_onCommand;
    std::size_t m_next = 1; // step 0 is the start
    bool m_ranOut = false;
    std::string m_line;
    std::vector<std::size_t> m_marks;
};

std::vector<std::string> linesOf(const std::string &text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::vector<std::vector<std::string>> stepsOf(const std::string &transcript, std::vector<std::size_t> marks)
{
    std::vector<std::vector<std::string>> steps;
    std::size_t begin = 0;
    marks.push_back(transcript.size());
    for (const std::size_t end : marks) {
        steps.push_back(linesOf(transcript.substr(begin, end - begin)));
        begin = end;
    }
    return steps;
}

} // namespace

ScriptDriver::ScriptDriver()
    : program([](const Platform &platform) {
          App app(platform);
          Main(app);
      })
{
}

PlayRecord ScriptDriver::run(const Play &play, const TemporarySite &site)
{
    const CurrentFolder keep; // the program changes the current folder
    ScriptOptions options{site.folder().string(), readMoment(play.now), play.startProcesses};
    if (!options.now) throw std::runtime_error(play.file + ": now: is not a date and time");
    std::unique_ptr<Database> database =
        makeSqliteDatabase([&site](const std::string &dataSource) { return site.at(dataSource).string(); });
    if (wrapDatabase) database = wrapDatabase(std::move(database));
    std::ostringstream transcript, errors;
    CommandFeed feed(play, transcript, onCommand);
    std::istream commands(&feed);
    PlayRecord record;
    record.exitCode = playScript(options, {commands, transcript, errors}, *database, program);
    record.events = stepsOf(transcript.str(), feed.marks());
    record.ranOutOfCommands = feed.ranOut();
    record.errors = errors.str();
    return record;
}

} // namespace inin
