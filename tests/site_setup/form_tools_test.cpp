#include "demo_site/site_maker.h"
#include "runtime/runtime_error.h"
#include "site_setup/form_tools.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

/// An empty site, and a program in the place of the form viewer.
struct ToolSite {
    TempFolder folder, programs;
    std::filesystem::path viewer = programs.folder() / site::formViewerName();
    ToolSite() { programs.put(site::formViewerName().string(), "viewer"); }
    [[nodiscard]] std::string install() const
    {
        std::string sentences;
        for (const site::FileReport &report : site::installTools(folder.folder(), viewer))
            sentences += site::sentenceOf(report) + "\n";
        return sentences;
    }
};

} // namespace

TEST_CASE("missing form tools become starters of the form viewer")
{
    const ToolSite site;

    CHECK(site.install() == "「wfrfv10.exe」を書き込みました。\n"
                            "「WrVb6Viewer.exe」を書き込みました。\n"
                            "「wfrimg10.exe」を書き込みました。\n");
    for (const std::string_view tool : site::kFormTools) CHECK(site::isOwnProgram(site.folder.folder() / tool));
}

TEST_CASE("starters of an earlier version are refreshed")
{
    const ToolSite site;
    (void)site.install();
    const std::string written = site.folder.bytes("wfrfv10.exe");

    CHECK(site.install().starts_with("「wfrfv10.exe」は最新です。\n"));
    CHECK(site.folder.bytes("wfrfv10.exe") == written);
    CHECK(site.programs.bytes(site::formViewerName().string()) == "viewer");
}

TEST_CASE("a form tool of another maker is kept")
{
    const ToolSite site;
    site.folder.put("wfrfv10.exe", "MZ another maker's tool");

    CHECK(site.install().starts_with("「wfrfv10.exe」はすでにあるので、そのままにしました。\n"));
    CHECK(site.folder.bytes("wfrfv10.exe") == "MZ another maker's tool");
}

TEST_CASE("form tools are not installed without a form viewer")
{
    const ToolSite site;
    std::filesystem::remove(site.viewer);
    CHECK_THROWS_AS((void)site.install(), RuntimeError);
    CHECK(std::filesystem::is_empty(site.folder.folder()));
}
