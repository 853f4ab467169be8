#pragma once

#include "screen/form.h"
#include "shell/app.h"
#include "support/fake_database.h"
#include "support/fake_files.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace inin {

/// Thrown by the fake end statement. Not a RuntimeError, so that nothing in the program traps it.
struct ProcessEnded {};

struct ShownBox {
    std::string text;
    Icon icon = Icon::none;
    std::string title; ///< as passed: empty for the application's title
    friend bool operator==(const ShownBox &, const ShownBox &) = default;
};

class FakeBoxes : public MessageBoxes {
public:
    std::vector<ShownBox> shown;
    /// Called at each box, to check the state at that moment.
    std::function<void(const ShownBox &)> onShow;
    void show(const std::string &text, Icon icon, const std::string &title) override
    {
        shown.push_back({text, icon, title});
        if (onShow) onShow(shown.back());
    }
    /// The number of questions to answer with Retry before the first Cancel.
    int retries = 0;
    bool askRetry(const std::string &text, Icon icon, const std::string &title) override
    {
        show(text, icon, title);
        return retries-- > 0;
    }
};

/// Shows forms without a screen. A modal form runs the queued acts until it is closed. It never closes by itself: with
/// no act left, show throws std::logic_error, so a test must queue an act that closes each form.
class FakeWindows : public Windows {
public:
    std::vector<std::string> log; ///< "show NAME", "hide NAME", "beep", "time", "focus NAME", "tab"
    std::deque<std::function<void(Form &)>> acts;
    /// Queues a click on the close button of the form that is topmost by then.
    void closeByControlBox();
    std::int32_t pictureError = 0;
    Control *active = nullptr;
    /// Called by processWaitingEvents, for the waiting events.
    std::function<void()> onTime;

    void show(Form &form, Modality modality) override;
    void checkPicture(const std::string &path) override;
    void beep() override { log.emplace_back("beep"); }
    void processWaitingEvents() override
    {
        log.emplace_back("time");
        if (onTime) onTime();
    }
    void moveFocus(Form &, Control &control) override { log.push_back("focus " + control.name()); }
    void sendTab(Form &) override { log.emplace_back("tab"); }
    Control *activeControl(Form &) override { return active; }
};

class FakeProcesses : public Processes {
public:
    std::vector<std::string> started; ///< "style command line"
    std::vector<std::string> opened;
    std::int32_t startError = 0;
    /// Called at each start.
    std::function<void()> onStart;
    std::string name = "RECEPTION1";
    bool ended = false;

    void start(const std::string &commandLine, WindowStyle style) override;
    void openAddress(const std::string &address) override { opened.push_back(address); }
    std::optional<std::string> computerName(std::size_t capacity) override;
    std::uint32_t processId() override { return 1234; }
    [[noreturn]] void end() override;
};

class FakeClock : public Clock {
public:
    Date current = DateSerial(2024, 6, 15);
    double seconds = 0;
    Date now() override { return current; }
    double timer() override { return seconds; }
    void pause(std::chrono::milliseconds time) override { seconds += std::chrono::duration<double>(time).count(); }
};

class FakeLocale : public Locale {
public:
    Regional settings;
    Regional regional() override { return settings; }
    std::string toCodePage(std::string_view utf8) override;
    std::string fromCodePage(std::string_view bytes) override;
};

class FakeAutomationObject : public AutomationObject {
public:
    explicit FakeAutomationObject(std::vector<std::string> &log) : m_log(log) {}
    Variant get(const std::string &member) override;
    void set(const std::string &member, const Variant &value) override;
    Variant call(const std::string &member, std::span<const Variant> arguments) override;

private:
    std::vector<std::string> &m_log;
};

class FakeAutomation : public Automation {
public:
    bool known = false;
    std::vector<std::string> log;
    std::unique_ptr<AutomationObject> create(const std::string &programId) override;
};

/// A complete fake world with an App in it. It has the site's settings; a test removes or adds what it needs.
struct FakeWorld {
    FakeWorld();
    FakeBoxes boxes;
    FakeWindows windows;
    FakeDatabase database;
    FakeFiles files;
    FakeProfile profile{files};
    FakeProcesses processes;
    FakeClock clock;
    FakeLocale locale;
    FakeAutomation automation;
    Platform platform{boxes, windows, database, profile, files, processes, clock, locale, automation};
    App app{platform};
};

/// Converts code page 932 to UTF-8, to compare the contents of a file.
[[nodiscard]] std::string fromCp932(const std::string &bytes);
[[nodiscard]] std::string toCp932(const std::string &utf8);

} // namespace inin
