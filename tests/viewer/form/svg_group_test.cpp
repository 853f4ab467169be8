#include "viewer/form/svg_reader.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <variant>

using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("the opacity of a group is multiplied with that of its parent and ends with the group")
{
    const FormDocument form = readSvg(svgPage("<g opacity='0.5'><g opacity='0.5'><rect width='5' height='5'/></g>"
                                              "<rect width='5' height='5'/></g><rect width='5' height='5'/>"));
    REQUIRE(form.commands.size() == 3);
    const auto fillOf = [&](std::size_t command) { return std::get<PathCommand>(form.commands[command]).fill; };
    CHECK(fillOf(0) == Color{191, 191, 191});
    CHECK(fillOf(1) == Color{128, 128, 128});
    CHECK(fillOf(2) == Color{0, 0, 0});
}

TEST_CASE("an odd number of dashes is repeated, so that dashes and gaps alternate")
{
    const FormDocument form = readSvg(svgPage("<path d='M0 0H9' stroke='#000' style='stroke-dasharray:1 2 3'/>"));
    const auto &dashes = std::get<PathCommand>(form.commands.at(0)).stroke->dashes;
    REQUIRE(dashes.size() == 6);
    CHECK(dashes[1] == doctest::Approx(2 * dashes[0]));
    CHECK(std::vector(dashes.begin(), dashes.begin() + 3) == std::vector(dashes.begin() + 3, dashes.end()));
}

TEST_CASE("a padding keeps a text away from all four sides of its box")
{
    const auto boxWith = [](const std::string &padding) {
        const FormDocument form = readSvg(svgPage("<rect id='b' x='10' y='20' width='30' height='8' fill='none'/>"
                                                  "<text data-box='b' " +
                                                  padding + ">{{名}}</text>"));
        return std::get<TextCommand>(form.commands.at(0)).fit->box;
    };
    constexpr double kMillimetre = 72 / 25.4;
    const Box whole = boxWith(""), inner = boxWith("data-padding='2'");
    CHECK(inner.left - whole.left == doctest::Approx(2 * kMillimetre));
    CHECK(inner.top - whole.top == doctest::Approx(2 * kMillimetre));
    CHECK(inner.width == doctest::Approx(26 * kMillimetre));
    CHECK(inner.height == doctest::Approx(4 * kMillimetre));
}

TEST_CASE("a text is at the top, in the middle or at the bottom of its box")
{
    const auto verticalOf = [](const std::string &wish) {
        const FormDocument form = readSvg(svgPage("<rect id='b' x='10' y='20' width='30' height='8' fill='none'/>"
                                                  "<text data-box='b' " +
                                                  wish + ">{{名}}</text>"));
        return std::get<TextCommand>(form.commands.at(0)).fit->verticalAlignment;
    };
    CHECK(verticalOf("") == VerticalAlignment::middle);
    CHECK(verticalOf("data-valign='top'") == VerticalAlignment::top);
    CHECK(verticalOf("data-valign='bottom'") == VerticalAlignment::bottom);
}
