#include "system/file_path.h"
#include "viewer/ledger/ledger_place.h"

namespace inin::viewer {

std::string operatorDataFolder(const Environment &environment)
{
    const std::string data = environment("LOCALAPPDATA");
    return data.empty() ? std::string() : textOf(pathOf(data) / "formviewer");
}

} // namespace inin::viewer
