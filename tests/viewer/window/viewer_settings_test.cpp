#include "viewer/support/viewer_world.h"
#include "viewer/window/viewer_settings.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("offsets of printers with unusual names are kept apart")
{
    const TempFolder folder;
    const QString path = QString::fromStdString(folder / "s.ini");
    {
        ViewerSettings settings(path);
        settings.setOffset(QStringLiteral("a/b"), {1, 2});
        settings.setOffset(QStringLiteral("a"), {3, 4});
        settings.setOffset(QStringLiteral("事務所=1"), {-5, 6});
        CHECK(settings.save());
    }
    const ViewerSettings settings(path);
    CHECK(settings.offsetOf(QStringLiteral("a/b")) == PrinterOffset{1, 2});
    CHECK(settings.offsetOf(QStringLiteral("a")) == PrinterOffset{3, 4});
    CHECK(settings.offsetOf(QStringLiteral("事務所=1")) == PrinterOffset{-5, 6});
    CHECK(settings.offsetOf(QStringLiteral("b")) == PrinterOffset{});
}

TEST_CASE("a corrupt settings file yields valid offsets and job sizes")
{
    const TempFolder folder;
    folder.put("s.ini", "[print]\nlettersPerJob=-7\n[printers]\na\\offsetRight=999999\na\\offsetDown=oops\n");
    const ViewerSettings settings(QString::fromStdString(folder / "s.ini"));
    CHECK(settings.lettersPerJob() == 0);
    CHECK(settings.offsetOf(QStringLiteral("a")) == PrinterOffset{500, 0});
}

TEST_CASE("saving settings that cannot be written returns false")
{
    const TempFolder folder;
    folder.put("s", "a file where a folder is due");
    ViewerSettings settings(QString::fromStdString(folder / "s/s.ini"));
    settings.setLettersPerJob(3);
    CHECK(!settings.save());
}
