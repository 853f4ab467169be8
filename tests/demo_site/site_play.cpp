#include "demo_site/site_play.h"

#include "adapters/script/script_player.h"
#include "adapters/sqlite/sqlite_database.h"
#include "shell/start.h"

namespace inin::test {

using namespace script;

using namespace sqlite;

SitePlay::SitePlay(const std::string &scenario, const std::string &now)
{
    site::makeSite(m_folder.folder(), ordinaryOrder(), site::Overwrite::onlyOwnFolder);
    const std::filesystem::path site = m_folder.folder();
    const auto database = makeSqliteDatabase([site](const std::string &path) { return (site / path).string(); });
    std::istringstream commands(bytesOf(std::string(ININ_SITE) + "/scenarios/" + scenario));
    ScriptOptions options;
    options.applicationFolder = site.string();
    options.now = readMoment(now);
    m_result = playScript(options, {commands, m_transcript, m_errors}, *database, [](const Platform &platform) {
        App app(platform);
        Main(app);
    });
}

bool SitePlay::reports(const std::string &text) const
{
    return m_transcript.str().find(text) != std::string::npos;
}

std::vector<std::string> SitePlay::linesWith(const std::string &text) const
{
    std::vector<std::string> lines;
    std::istringstream transcript(m_transcript.str());
    for (std::string line; std::getline(transcript, line);)
        if (line.find(text) != std::string::npos) lines.push_back(line);
    return lines;
}

} // namespace inin::test
