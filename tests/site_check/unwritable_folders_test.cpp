#include "adapters/posix/ordinary_user.h"
#include "site_check/sound_site.h"
#include "support/small_disk.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

TEST_CASE("TMP and DATA are found if a file cannot be created there; the other folders need not be writable")
{
    const SoundSite site;
    for (const char *name : {"TMP", "DATA", "SYS", "ICON"})
        fs::permissions(site.path() / name, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                                fs::perms::others_exec);
    fs::permissions(site.path(), fs::perms::all);
    fs::permissions(site.path() / "adodb.ini", fs::perms::all);
    fs::permissions(site.database(), fs::perms::all);
    const std::string found = asOrdinaryUser([&site] {
        std::string lines;
        for (const std::string &sentence : site.check()) lines += sentence + "\n";
        return lines;
    });
    CHECK(found == "Massage.ini の項目「SYSTEM_TMP」のフォルダー「\\TMP」に書き込めません（パス名が無効です。）。"
                   "使う人の書き込みと削除の権限と、ディスクの空きを確かめてください。\n"
                   "Massage.ini の項目「SYSTEM_DATA」のフォルダー「\\DATA」に書き込めません（パス名が無効です。）。"
                   "使う人の書き込みと削除の権限と、ディスクの空きを確かめてください。\n");
}

TEST_CASE("a folder on a full disk is found, and the test leaves no file there")
{
    const SoundSite site;
    const SmallDisk disk((site.path() / "TMP").string(), 64);
    if (!disk.fault().empty()) {
        MESSAGE("skipped: ", disk.fault());
        return;
    }
    CHECK(site.check().empty());
    CHECK(fs::is_empty(site.path() / "TMP"));
    disk.fill();
    CHECK(site.check() == Sentences{"Massage.ini の項目「SYSTEM_TMP」のフォルダー「\\TMP」に書き込めません（"
                                    "ディスクの空き容量が不足しています。）。使う人の書き込みと削除の権限と、"
                                    "ディスクの空きを確かめてください。"});
    disk.clear();
    CHECK(fs::is_empty(site.path() / "TMP"));
}
