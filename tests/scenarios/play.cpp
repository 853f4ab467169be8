#include "scenarios/play.h"

#include "system/file_path.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string_view>

namespace inin {

namespace {

constexpr std::string_view kIndent = "    ";

class PlayReader {
public:
    explicit PlayReader(const std::string &path) : m_in(path)
    {
        if (!m_in) throw std::runtime_error("cannot read " + path);
        m_play.file = std::filesystem::path(path).filename().string();
        m_play.steps.emplace_back();
    }

    [[nodiscard]] Play read()
    {
        while (std::getline(m_in, m_text)) {
            ++m_line;
            readLine();
        }
        if (m_play.claim.empty()) fail("the play does not begin with what it shows");
        if (m_play.site.empty()) fail("the play names no site");
        return m_play;
    }

private:
    void readLine()
    {
        if (m_text.empty()) return;
        if (m_block != nullptr && m_text.starts_with(kIndent)) {
            m_block->text += m_text.substr(kIndent.size()) + "\n";
            return;
        }
        m_block = nullptr;
        if (readComment() || readStep() || readBlock() || readSetting()) return;
        fail("this line is no line of a play: " + m_text);
    }

    bool readComment()
    {
        const auto words = behind("#");
        if (words && m_play.claim.empty()) m_play.claim = *words;
        return words.has_value();
    }

    bool readStep()
    {
        using How = PlayStep::Expected::How;
        if (const auto command = behind(">"))
            addStep(*command);
        else if (m_text == "< ...")
            expect(How::anything, {});
        else if (const auto part = behind("<~"))
            expect(How::containing, *part);
        else if (const auto event = behind("<"))
            expect(How::exactly, *event);
        else
            return false;
        return true;
    }

    bool readBlock()
    {
        if (!m_text.ends_with(':')) return false;
        const std::string head = m_text.substr(0, m_text.size() - 1);
        if (head.starts_with("file "))
            open(m_play.expectedFiles, head.substr(5));
        else if (head.starts_with("put "))
            open(m_play.put, head.substr(4));
        else
            return false;
        return true;
    }

    bool readSetting()
    {
        if (const auto site = behind("site:"))
            m_play.site = *site;
        else if (const auto now = behind("now:"))
            m_play.now = *now;
        else if (const auto start = behind("start:"))
            m_play.startProcesses = *start == "yes";
        else if (const auto removed = behind("remove:"))
            m_play.removed.push_back(*removed);
        else if (const auto folder = behind("folder:"))
            m_play.folders.push_back(*folder);
        else if (const auto sql = behind("sql:"))
            m_play.sql.push_back(*sql);
        else if (const auto absent = behind("absent:"))
            m_play.absentFiles.push_back(*absent);
        else if (const auto code = behind("exit:"))
            m_play.exitCode = std::stoi(*code);
        else
            return false;
        return true;
    }

    /// The rest of the line after a prefix and one blank.
    [[nodiscard]] std::optional<std::string> behind(std::string_view mark) const
    {
        if (!m_text.starts_with(mark)) return std::nullopt;
        std::string rest = m_text.substr(mark.size());
        if (rest.starts_with(' ')) rest.erase(0, 1);
        return rest;
    }

    void addStep(const std::string &command)
    {
        if (m_play.steps.back().isEndOfCommands()) fail("a command follows the end of the commands");
        m_play.steps.push_back({command, {}});
    }

    void expect(PlayStep::Expected::How how, const std::string &event)
    {
        m_play.steps.back().expected.push_back({how, event, m_line});
    }

    void open(std::vector<PlayFile> &files, const std::string &path)
    {
        m_block = &files.emplace_back(PlayFile{path, {}, m_line});
    }

    [[noreturn]] void fail(const std::string &why) const
    {
        throw std::runtime_error(m_play.file + ":" + std::to_string(m_line) + ": " + why);
    }

    std::ifstream m_in;
    std::string m_text;
    std::size_t m_line = 0;
    Play m_play;
    PlayFile *m_block = nullptr; ///< the file whose indented lines follow
};

} // namespace

std::vector<std::string> playFiles()
{
    std::vector<std::string> files;
    for (const auto &entry : std::filesystem::directory_iterator(ININ_SCENARIOS))
        if (entry.path().extension() == ".play") files.push_back(textOf(entry.path()));
    std::ranges::sort(files);
    return files;
}

Play readPlay(const std::string &path)
{
    return PlayReader(path).read();
}

} // namespace inin
