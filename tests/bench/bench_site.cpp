#include "bench/bench_site.h"

#include "adapters/native/native_platform.h"
#include "adapters/sqlite/sqlite_database.h"
#include "demo_site/site_maker.h"
#include "printing/extraction.h"

#include <fmt/format.h>

#include <cstdlib>
#include <stdexcept>

namespace inin::bench {

using namespace sqlite;

namespace {

namespace fs = std::filesystem;

class NoBoxes : public MessageBoxes {
public:
    void show(const std::string &text, Icon, const std::string &) override
    {
        throw std::runtime_error("unexpected box: " + text);
    }
    bool askRetry(const std::string &text, Icon, const std::string &) override
    {
        throw std::runtime_error("unexpected question: " + text);
    }
};

/// Never called, because no window is shown.
class NoWindows : public Windows {
public:
    void show(Form &, Modality) override {}
    void checkPicture(const std::string &) override {}
    void beep() override {}
    void processWaitingEvents() override {}
    void moveFocus(Form &, Control &) override {}
    void sendTab(Form &) override {}
    Control *activeControl(Form &) override { return nullptr; }
};

[[noreturn]] void unexpectedEnd()
{
    throw std::runtime_error("unexpected end of the process");
}

std::unique_ptr<Database> embeddedIn(const fs::path &folder)
{
    return makeSqliteDatabase([folder](const std::string &path) { return (folder / path).string(); });
}

} // namespace

BenchSite::BenchSite(std::int64_t patients, std::int64_t staff)
{
    site::makeSite(folder(), {patients, 1, std::chrono::year{kYear} / static_cast<int>(kMonth), staff},
                   site::Overwrite::onlyOwnFolder);
}

std::string monthStatement()
{
    const Regional regional;
    const TargetDate target(fmt::format("{:04}/{:02}/1", kYear, kMonth), regional);
    ExtractionQuery query;
    query.iKyotenCd = 1;
    query.iKyotenEb = 1;
    query.iTrustKind = 1;
    query.bounds = (target.*kKanjaDataMonth.bounds)();
    return extractionSql(kKanjaDataMonth, query);
}

struct BenchScreen::Parts {
    Parts(const fs::path &folder, std::unique_ptr<Database> own)
        : database(own ? std::move(own) : embeddedIn(folder)), profile(makeSystemProfile()),
          files(makeSystemFiles(folder.string())), processes(makeSystemProcesses(unexpectedEnd)),
          clock(makeSystemClock()), locale(makeSystemLocale()), automation(makeSystemAutomation()),
          app(Platform{boxes, windows, *database, *profile, *files, *processes, *clock, *locale, *automation})
    {
    }

    NoBoxes boxes;
    NoWindows windows;
    std::unique_ptr<Database> database;
    std::unique_ptr<Profile> profile;
    std::unique_ptr<Files> files;
    std::unique_ptr<Processes> processes;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<Locale> locale;
    std::unique_ptr<Automation> automation;
    App app;
    std::unique_ptr<frmPrintInin> form;
};

BenchScreen::BenchScreen(const fs::path &folder, std::unique_ptr<Database> database)
    : m_parts(std::make_unique<Parts>(folder, std::move(database)))
{
    m_parts->app.gcsAppPath = folder.string();
    m_parts->app.iKyotenCd = 1;
    m_parts->app.iKyotenEb = 1;
    m_parts->form = std::make_unique<frmPrintInin>(m_parts->app);
    frmPrintInin &screen = *m_parts->form;
    screen.csTargetDate = fmt::format("{:04}/{:02}/1", kYear, kMonth);
    screen.iTgtDateKind = 1;
    screen.iObjectKind = 1;
    screen.iDspPeriodKind = 1;
    screen.iTrustKind = 1;
    screen.nStaffNo = -1;
    screen.nKanjaNo = -1;
}

BenchScreen::~BenchScreen() = default;

frmPrintInin &BenchScreen::form()
{
    return *m_parts->form;
}

App &BenchScreen::app()
{
    return m_parts->app;
}

void BenchScreen::writeMonth()
{
    if (form().iGetKanjaDataMonth() != iGood) throw std::runtime_error("the extraction failed");
    form().saveCSVInin();
    fmt::print("{}\n", form().iRowCount);
}

} // namespace inin::bench
