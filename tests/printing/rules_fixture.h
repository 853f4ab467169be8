#pragma once

#include "printing/print_form.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace inin {

/// A screen in its design state: nothing is loaded, only the entered signature is selected, everything is enabled.
struct RulesFixture {
    FakeWorld world;
    frmPrintInin form{world.app};

    /// A click by the operator.
    void click(const std::string &option)
    {
        auto *button = dynamic_cast<OptionButton *>(form.find(option));
        REQUIRE(button != nullptr);
        button->Value = true;
    }
    /// The disabled controls from the top of the screen down.
    [[nodiscard]] std::vector<std::string> disabled() const
    {
        std::vector<std::string> names;
        for (const Control *control : form.controls())
            if (!control->Enabled) names.push_back(control->name());
        return names;
    }
    void disableEverything()
    {
        for (Control *control : form.controls()) control->Enabled = false;
    }
    /// Records each control that changes, in order.
    void watchInto(std::vector<std::string> &changed)
    {
        for (Control *control : form.controls())
            control->watch([control, &changed] { changed.push_back(control->name()); });
    }
};

} // namespace inin
