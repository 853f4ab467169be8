#include "scenarios/temporary_site.h"

#include "suite_text/code_page_932.h"
#include "support/file_bytes.h"
#include "support/replace_all.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

namespace inin {

namespace {

namespace fs = std::filesystem;

constexpr const char *kDatabase = "site.db";
/// The tables of every site; a site's own scripts contain its rows.
constexpr const char *kSchema = ININ_SITE "/schema_sqlite.sql";

struct CloseDatabase {
    void operator()(sqlite3 *database) const { sqlite3_close(database); }
};

class SiteDatabase {
public:
    explicit SiteDatabase(const fs::path &path)
    {
        sqlite3 *database = nullptr;
        const int result = sqlite3_open(path.string().c_str(), &database);
        m_database.reset(database);
        if (result != SQLITE_OK) throw std::runtime_error("cannot make " + path.string());
        // The files of a play are temporary: waiting for the disk would take most of its time.
        exec("PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF", path);
    }
    void run(const fs::path &script) const { exec(bytesOf(script), script); }
    void exec(const std::string &sql, const fs::path &origin) const
    {
        if (sqlite3_exec(m_database.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(origin.string() + ": " + sqlite3_errmsg(m_database.get()));
    }

private:
    std::unique_ptr<sqlite3, CloseDatabase> m_database;
};

void makeFolders(const fs::path &list, const fs::path &site)
{
    std::ifstream in(list);
    for (std::string name; std::getline(in, name);) fs::create_directories(site / name);
}

} // namespace

std::string withoutFolder(const std::string &text, const TemporarySite &site)
{
    const std::string folder = textOf(site.folder());
    const std::string suiteFolder = replaceAll(folder, "/", "\\");
    std::string bare = text;
    for (const std::string &spelled : {replaceAll(suiteFolder, "\\", "\\\\"), suiteFolder, folder})
        bare = replaceAll(bare, spelled, "$APP");
    return bare;
}

std::string suiteBytes(const std::string &utf8)
{
    std::string bytes;
    for (const char byte : encodeCp932(utf8)) {
        if (byte == '\n') bytes += '\r';
        bytes += byte;
    }
    return bytes;
}

TemporarySite::TemporarySite(const Play &play)
{
    fill(fs::path(ININ_SCENARIOS) / "sites" / play.site);
    change(play);
}

fs::path TemporarySite::at(const std::string &suitePath) const
{
    std::string path = suitePath;
    std::ranges::replace(path, '\\', '/');
    return folder() / pathOf(path);
}

void TemporarySite::fill(const fs::path &source)
{
    std::vector<fs::path> files;
    for (const auto &entry : fs::recursive_directory_iterator(source))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::ranges::sort(files);
    const SiteDatabase database(folder() / kDatabase);
    database.run(kSchema);
    for (const fs::path &file : files) {
        const fs::path target = folder() / fs::relative(file, source);
        if (file.filename() == "folders.txt")
            makeFolders(file, folder());
        else if (file.extension() == ".sql")
            database.run(file);
        else if (file.extension() == ".ini")
            writeBytes(target, suiteBytes(bytesOf(file)));
        else
            writeBytes(target, bytesOf(file));
    }
}

void TemporarySite::change(const Play &play) const
{
    for (const std::string &path : play.removed)
        if (fs::remove_all(at(path)) == 0) throw std::runtime_error(play.file + ": the site has no " + path);
    for (const std::string &statement : play.sql) SiteDatabase(folder() / kDatabase).exec(statement, play.file);
    for (const std::string &path : play.folders) fs::create_directories(at(path));
    for (const PlayFile &file : play.put) writeBytes(at(file.path), suiteBytes(file.text));
}

} // namespace inin
