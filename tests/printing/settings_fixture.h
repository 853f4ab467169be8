#pragma once

#include "printing/print_form.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace inin {

inline constexpr const char *kStore = "C:\\SUITE\\DATA\\印刷設定.ini";

/// A screen in its design state with a store.
struct StoreFixture {
    FakeWorld world;
    frmPrintInin form{world.app};

    void put(const std::string &lines) { world.files.putText(kStore, lines); }
    /// A store with a single key: all others have their defaults.
    std::int32_t loadKey(const std::string &key, const std::string &value)
    {
        put("[委任状]\n" + key + "=" + value + "\n");
        return form.iLoadPrintSetting();
    }
    [[nodiscard]] std::string store() const { return fromCp932(world.files.bytes(kStore)); }
    [[nodiscard]] std::vector<std::string> marked()
    {
        std::vector<std::string> names;
        for (OptionGroup *group :
             {&form.optPrint, &form.optObject, &form.optTgtDate, &form.optTrust, &form.optDspPeriod, &form.optSyomei})
            if (group->marked() >= 0) names.push_back((*group)(group->marked()).name());
        return names;
    }
    /// Records each click that fires, in order, and lets it run.
    void recordClicks(std::vector<std::string> &clicks)
    {
        for (OptionGroup *group :
             {&form.optPrint, &form.optObject, &form.optTgtDate, &form.optTrust, &form.optDspPeriod, &form.optSyomei})
            group->onClick = [group, &clicks, click = group->onClick](std::int16_t Index) {
                clicks.push_back((*group)(Index).name());
                click(Index);
            };
    }
    void checkOnlyBox(const std::string &text) const
    {
        REQUIRE(world.boxes.shown.size() == 1);
        CHECK(world.boxes.shown.front() == ShownBox{text, Icon::none, ""});
    }
};

} // namespace inin
