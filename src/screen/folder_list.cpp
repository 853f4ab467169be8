#include "screen/folder_list.h"

#include <limits>

namespace inin {

namespace {
/// ListCount has 16 bits; further folders are left out.
constexpr std::size_t kMaxItems = std::numeric_limits<std::int16_t>::max();
} // namespace

FolderList::FolderList(std::string name, Folders &folders) : ListBox(std::move(name)), m_folders(folders)
{
    Style = ListStyle::open;
}

void FolderList::setPath(const std::string &path)
{
    const FolderContents contents = m_folders.open(path);
    Clear();
    m_paths.clear();
    m_drive = contents.drive;
    m_path = contents.above.empty() ? path : contents.above.back().path;
    for (std::size_t depth = 0; const FolderPlace &place : contents.above) list(place, depth++);
    const auto open = static_cast<std::int16_t>(ListCount() - 1);
    for (const FolderPlace &place : contents.inside) list(place, contents.above.size());
    ListIndex.assignQuietly(open);
}

void FolderList::list(const FolderPlace &place, std::size_t depth)
{
    if (m_paths.size() == kMaxItems) return;
    m_paths.push_back(place.path);
    AddItem(place.name, static_cast<std::int32_t>(depth));
}

void FolderList::openChosen()
{
    if (ListIndex < 0) return;
    // A copy, because opening the folder clears m_paths.
    const std::string path = m_paths.at(static_cast<std::size_t>(ListIndex.get()));
    setPath(path);
}

} // namespace inin
