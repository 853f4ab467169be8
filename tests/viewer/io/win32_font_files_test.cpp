#include "system/program_edges.h"
#include "viewer/io/font_files.h"
#include "viewer/io/mapped_file.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <set>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// A folder that Wine shows as a share of a server: it looks for shares in a folder of its prefix.
class SharedFolder {
public:
    SharedFolder() { std::filesystem::create_directories(m_folder); }
    SharedFolder(const SharedFolder &) = delete;
    SharedFolder &operator=(const SharedFolder &) = delete;
    ~SharedFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder.parent_path(), ignored);
    }
    [[nodiscard]] std::string name() const { return "\\\\" + m_server + "\\share"; }
    [[nodiscard]] std::string put(const std::string &file, const std::string &bytes) const
    {
        std::string path = textOf(m_folder / file);
        writeBytes(path, bytes);
        return path;
    }

private:
    std::string m_server = "inin-" + std::to_string(GetCurrentProcessId());
    std::filesystem::path m_folder =
        std::filesystem::path("Z:" + environmentText("WINEPREFIX")) / "dosdevices" / "unc" / m_server / "share";
};

} // namespace

TEST_CASE("each listed font file is returned once, without vertical names and brackets")
{
    const std::vector<FontFile> files = installedFontFiles();
    CHECK_FALSE(files.empty());
    std::set<std::string> paths;
    for (const FontFile &file : files) {
        CHECK(paths.insert(file.path).second);
        CHECK_FALSE(file.listedAs.starts_with("@"));
        CHECK_FALSE(file.listedAs.ends_with(")"));
    }
}

TEST_CASE("the bytes of a file on a share remain when it vanishes")
{
    const SharedFolder share;
    const std::string path = share.put("font.ttf", std::string(100000, 'x'));
    const MappedFile file(share.name() + "\\font.ttf");
    REQUIRE(file.bytes() == std::string(100000, 'x'));
    std::filesystem::resize_file(inin::pathOf(path), 0);
    CHECK(file.bytes() == std::string(100000, 'x'));
}

TEST_CASE("a file on a share that does not exist is empty")
{
    CHECK(MappedFile("\\\\no-such-server\\share\\font.ttf").bytes().empty());
}
