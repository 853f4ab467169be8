#pragma once

#include "formoutput/wfd_print_exe.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace inin {

inline constexpr const char *kScript = "C:\\SUITE\\TMP\\WfdCom.dat";
inline constexpr const char *kForm = "C:\\SUITE\\SYS\\a.wfd";
inline constexpr const char *kViewerStart = "2 wfrfv10.exe /c C:\\SUITE\\TMP\\WfdCom.dat";

/// The programs started, lines written and disk accesses, in order.
using Lines = std::vector<std::string>;

/// An object after iInit with a form and without a title.
struct WfdFixture {
    FakeWorld world;
    cls_WfdPrintExe wfd{world.app};
    WfdFixture() { REQUIRE(wfd.iInit(kForm) == 0); }
    [[nodiscard]] std::string script() const { return world.files.bytes(kScript); }
    /// The script of a preview that starts nothing.
    std::string dataScript()
    {
        wfd.iPreviewData();
        return script();
    }
};

} // namespace inin
