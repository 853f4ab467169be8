#include "screen/form.h"

#include "platform/key_codes.h"
#include "runtime/runtime_error.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace inin;

namespace {

/// A form that records its events and runs a handler for each.
class ProbeForm : public Form {
public:
    ProbeForm() : Form("frmProbe")
    {
        add(box);
        add(box2, &box);
        add(menu);
        add(back, &menu);
        add(search);
        add(cancel);
        add(accept);
        back.onClick = [this] { log.emplace_back("menu"); };
        cancel.onClick = [this] { log.emplace_back("cancel"); };
        accept.onClick = [this] { log.emplace_back("accept"); };
        search.onKeyPress = [this](std::int16_t KeyCode) { log.push_back("control " + std::to_string(KeyCode)); };
        cancel.Cancel = true;
    }

    Frame box{"Frame1"};
    Label box2{"Label1"};
    MenuEntry menu{"mnFunc"};
    MenuEntry back{"mnF12", kF12Key};
    NumberBox search{"imNum_CD"};
    Button cancel{"btnPrint(6)"};
    Button accept{"btnReturn"};

    std::vector<std::string> log;
    std::function<void()> onLoad, onUnload;
    std::function<void(std::int16_t &)> onKeyDown, onPress;
    bool refuseQuery = false, refuseUnload = false;

protected:
    void Form_Load() override
    {
        log.emplace_back("load");
        if (onLoad) onLoad();
    }
    void Form_QueryUnload(std::int16_t &Cancel, bool byControlBox) override
    {
        log.emplace_back(byControlBox ? "query by box" : "query");
        if (refuseQuery) Cancel = 1;
    }
    void Form_Unload(std::int16_t &Cancel) override
    {
        log.emplace_back("unload");
        if (onUnload) onUnload();
        if (refuseUnload) Cancel = 1;
    }
    void Form_KeyDown(std::int16_t &KeyCode) override
    {
        log.push_back("down " + std::to_string(KeyCode));
        if (onKeyDown) onKeyDown(KeyCode);
    }
    void Form_KeyPress(std::int16_t &KeyAscii) override
    {
        log.push_back("press " + std::to_string(KeyAscii));
        if (onPress) onPress(KeyAscii);
    }
};

using Log = std::vector<std::string>;

} // namespace

TEST_CASE("a loaded form is not loaded again")
{
    ProbeForm form;
    form.load();
    form.load();
    CHECK(form.log == Log{"load"});
    CHECK(form.isLoaded());
}

TEST_CASE("an unloaded form can be loaded again")
{
    ProbeForm form;
    form.load();
    CHECK(form.unload());
    form.load();
    CHECK(form.log == Log{"load", "query", "unload", "load"});
}

TEST_CASE("a form counts as loaded while its load runs")
{
    ProbeForm form;
    bool loaded = false;
    form.onLoad = [&] {
        loaded = form.isLoaded();
        form.load();
    };
    form.load();
    CHECK(loaded);
    CHECK(form.log == Log{"load"});
}

TEST_CASE("a run-time error of the load reaches the caller and leaves the form unloaded")
{
    ProbeForm form;
    form.onLoad = [] { throw RuntimeError(error_number::typeMismatch); };
    CHECK_THROWS_AS(form.load(), RuntimeError);
    CHECK_FALSE(form.isLoaded());

    form.onLoad = nullptr;
    form.load();
    CHECK(form.log == Log{"load", "load"});
}

TEST_CASE("unloading a form that is not loaded fires no events")
{
    ProbeForm form;
    CHECK(form.unload());
    CHECK(form.log.empty());
}

TEST_CASE("the query of an unload distinguishes the control box")
{
    ProbeForm form;
    form.load();
    CHECK(form.unload(true));
    CHECK(form.log == Log{"load", "query by box", "unload"});
}

TEST_CASE("a query that cancels keeps the form loaded and prevents Form_Unload")
{
    ProbeForm form;
    form.refuseQuery = true;
    form.load();
    CHECK_FALSE(form.unload());
    CHECK(form.isLoaded());
    CHECK(form.log == Log{"load", "query"});
}

TEST_CASE("an unload that cancels keeps the form loaded, and it can be unloaded later")
{
    ProbeForm form;
    form.refuseUnload = true;
    form.load();
    CHECK_FALSE(form.unload());
    CHECK(form.isLoaded());

    form.refuseUnload = false;
    CHECK(form.unload());
    CHECK_FALSE(form.isLoaded());
}

TEST_CASE("an unload notifies the watchers of a form unless it is cancelled")
{
    ProbeForm form;
    int notifications = 0;
    form.load();
    form.watch([&] { ++notifications; });
    form.refuseUnload = true;
    static_cast<void>(form.unload());
    CHECK(notifications == 0);

    form.refuseUnload = false;
    static_cast<void>(form.unload());
    CHECK(notifications == 1);
}

TEST_CASE("a run-time error of the unload becomes an unhandled error with its number")
{
    ProbeForm form;
    form.onUnload = [] { throw RuntimeError(error_number::fileNotFound); };
    form.load();
    std::int32_t number = 0;
    try {
        static_cast<void>(form.unload());
    } catch (const UnhandledError &error) {
        number = error.error().number();
    }
    CHECK(number == 53);
}

TEST_CASE("an unload inside the form's own unload is refused")
{
    ProbeForm form;
    bool inner = true;
    form.onUnload = [&] { inner = form.unload(); };
    form.load();
    CHECK(form.unload());
    CHECK_FALSE(inner);
    CHECK(form.log == Log{"load", "query", "unload"});
}

TEST_CASE("a form can be unloaded again after a failed unload")
{
    ProbeForm form;
    form.onUnload = [] { throw RuntimeError(error_number::fileNotFound); };
    form.load();
    CHECK_THROWS_AS(form.unload(), UnhandledError);

    form.onUnload = nullptr;
    CHECK(form.unload());
}

TEST_CASE("a form that unloads itself while it loads is not shown")
{
    FakeWorld world;
    ProbeForm form;
    form.onLoad = [&] {
        static_cast<void>(form.unload());
        form.log.emplace_back("load goes on");
    };

    world.windows.show(form, Modality::modal);

    CHECK(form.log == Log{"load", "query", "unload", "load goes on"});
    CHECK_FALSE(form.isLoaded());
    CHECK(world.windows.log.empty());
}

TEST_CASE("a test must queue the closing of each form that the fake windows show")
{
    FakeWorld world;
    ProbeForm form;
    CHECK_THROWS_AS(world.windows.show(form, Modality::modal), std::logic_error);
    world.windows.closeByControlBox();
    world.windows.show(form, Modality::modal);
    CHECK(form.log == Log{"load", "query by box", "unload"});
}

TEST_CASE("an error of an unload during the load is an unhandled error")
{
    ProbeForm form;
    form.onLoad = [&] { static_cast<void>(form.unload()); };
    form.onUnload = [] { throw RuntimeError(error_number::fileNotFound); };
    CHECK_THROWS_AS(form.load(), UnhandledError);
}

TEST_CASE("each assignment of the mouse pointer is reported")
{
    ProbeForm form;
    std::vector<std::int16_t> kinds;
    form.onMousePointer = [&](std::int16_t kind) { kinds.push_back(kind); };
    form.setMousePointer(kPointerHourglass);
    form.setMousePointer(kPointerHourglass);
    form.setMousePointer(kPointerDefault);
    CHECK(kinds == std::vector<std::int16_t>{11, 11, 0});
    CHECK(form.MousePointer() == 0);
}

TEST_CASE("a form finds its controls by name and knows their frames")
{
    ProbeForm form;
    CHECK(form.find("Label1") == &form.box2);
    CHECK(form.find("Label1")->Container == &form.box);
    CHECK(form.find("label1") == nullptr);
    CHECK(form.controls().front() == &form.box);
}

TEST_CASE("a menu shortcut handles the key before any other control")
{
    ProbeForm form;
    form.key(&form.search, kF12Key);
    CHECK(form.log == Log{"menu"});
}

TEST_CASE("the shortcut of an unreachable entry is dispatched like any other key")
{
    ProbeForm form;
    SUBCASE("the entry is disabled")
    {
        form.back.Enabled = false;
    }
    SUBCASE("its menu is hidden")
    {
        form.menu.Visible = false;
    }
    form.key(nullptr, kF12Key);
    CHECK(form.log == Log{"down 123", "press 123"});
}

TEST_CASE("an entry without a shortcut responds to no key")
{
    ProbeForm form;
    form.menu.onClick = [&] { form.log.emplace_back("wrong"); };
    form.key(nullptr, 0);
    CHECK(form.log == Log{"down 0"});
}

TEST_CASE("a key is dispatched to key-down, key-press and the control, in this order")
{
    ProbeForm form;
    form.key(&form.search, kReturnKey);
    CHECK(form.log == Log{"down 13", "press 13", "control 13"});
}

TEST_CASE("a key without a control is not handled after the form's key-press")
{
    ProbeForm form;
    form.key(nullptr, kReturnKey);
    CHECK(form.log == Log{"down 13", "press 13"});
}

TEST_CASE("a control without a key handler does not handle the key")
{
    ProbeForm form;
    form.key(&form.accept, 65);
    CHECK(form.log == Log{"down 65", "press 65"});
}

TEST_CASE("a key-down that discards the key keeps it from the cancel button too")
{
    ProbeForm form;
    form.onKeyDown = [](std::int16_t &KeyCode) { KeyCode = 0; };
    form.key(&form.search, kEscapeKey);
    form.key(&form.search, kReturnKey);
    CHECK(form.log == Log{"down 27", "down 13"});
}

TEST_CASE("a key-press that discards the key keeps it from the control")
{
    ProbeForm form;
    form.onPress = [](std::int16_t &KeyAscii) { KeyAscii = 0; };
    form.key(&form.search, kReturnKey);
    CHECK(form.log == Log{"down 13", "press 13"});
}

TEST_CASE("the escape key presses the cancel button instead of firing the key-press")
{
    ProbeForm form;
    form.key(&form.search, kEscapeKey);
    CHECK(form.log == Log{"down 27", "cancel"});
}

TEST_CASE("the return key presses the default button, and no button without one")
{
    ProbeForm form;
    form.accept.Default = true;
    form.key(&form.search, kReturnKey);
    CHECK(form.log == Log{"down 13", "accept"});

    form.log.clear();
    form.accept.Default = false;
    form.key(nullptr, kReturnKey);
    CHECK(form.log == Log{"down 13", "press 13"});
}

TEST_CASE("a button may be both the default and the cancel button")
{
    ProbeForm form;
    form.cancel.Default = true;
    form.key(nullptr, kReturnKey);
    form.key(nullptr, kEscapeKey);
    CHECK(form.log == Log{"down 13", "cancel", "down 27", "cancel"});
}

TEST_CASE("an unreachable cancel button is not pressed")
{
    ProbeForm form;
    form.cancel.Visible = false;
    form.key(nullptr, kEscapeKey);
    CHECK(form.log == Log{"down 27", "press 27"});
}

TEST_CASE("a key-down that disables the cancel button keeps it from being pressed")
{
    ProbeForm form;
    form.onKeyDown = [&](std::int16_t &) { form.cancel.Enabled = false; };
    form.key(nullptr, kEscapeKey);
    CHECK(form.log == Log{"down 27", "press 27"});
}

TEST_CASE("a form that is closed by its key-down does not receive the key")
{
    ProbeForm form;
    form.onKeyDown = [&](std::int16_t &) { static_cast<void>(form.unload()); };
    form.load();
    form.log.clear();
    form.key(&form.search, kEscapeKey);
    CHECK(form.log == Log{"down 27", "query", "unload"});
}

TEST_CASE("a run-time error that leaves an event procedure becomes an unhandled error")
{
    CHECK_THROWS_AS(atEventEdge([] { throw RuntimeError(error_number::overflow); }), UnhandledError);
    CHECK_NOTHROW(atEventEdge([] {}));
}
