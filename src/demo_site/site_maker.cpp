#include "demo_site/site_maker.h"

#include "demo_site/database_maker.h"
#include "demo_site/site_files.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

void refuseForeignFolder(const fs::path &folder)
{
    std::error_code error;
    if (!fs::exists(folder, error) || fs::exists(folder / kMarkerFile, error)) return;
    if (fs::is_directory(folder, error) && fs::is_empty(folder, error)) return;
    throw RuntimeError(
        error_number::pathAccess,
        fmt::format("「{}」は空のフォルダーでも inin-site が作ったフォルダーでもないので、何も書き込みませんでした。"
                    "上書きするときは --force を付けてください。",
                    textOf(folder)));
}

void makeAndRename(const fs::path &unfinished, const fs::path &target, const SiteOrder &order)
{
    std::error_code error;
    fs::remove(unfinished, error); // left by a run that was killed
    makeDatabase(textOf(unfinished), order);
    const fs::file_status old = fs::status(target, error);
    if (fs::is_regular_file(old)) fs::permissions(unfinished, old.permissions(), error);
    fs::rename(unfinished, target, error);
    if (!error) return;
    throw RuntimeError(error_number::pathAccess,
                       fmt::format("データベース「{}」を置き換えられません。", textOf(target)));
}

/// The database gets its name when it is complete: a failing run keeps the old one and leaves nothing else. A killed
/// run leaves the unfinished file, which the next run removes.
void replaceDatabase(const fs::path &folder, const SiteOrder &order)
{
    const fs::path target = folder / kDatabaseFile;
    fs::path unfinished = target;
    unfinished += ".new";
    try {
        makeAndRename(unfinished, target, order);
    } catch (const RuntimeError &) {
        std::error_code error;
        fs::remove(unfinished, error); // report the original failure
        throw;
    }
}

} // namespace

void makeSite(const fs::path &folder, const SiteOrder &order, Overwrite overwrite, const fs::path &formViewer)
{
    if (overwrite == Overwrite::onlyOwnFolder) refuseForeignFolder(folder);
    writeSiteFiles(folder, order, formViewer);
    replaceDatabase(folder, order);
}

} // namespace inin::site
