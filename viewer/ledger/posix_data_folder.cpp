#include "system/file_path.h"
#include "viewer/ledger/ledger_place.h"

namespace inin::viewer {

std::string operatorDataFolder(const Environment &environment)
{
    const std::filesystem::path data = pathOf(environment("XDG_DATA_HOME"));
    // A relative path is invalid there.
    if (data.is_absolute()) return textOf(data / "formviewer");
    const std::string home = environment("HOME");
    return home.empty() ? std::string() : textOf(pathOf(home) / ".local/share/formviewer");
}

} // namespace inin::viewer
