#include "viewer/window/window_world.h"

#include "viewer/window/viewer_style.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace inin::viewer::test {

namespace {

/// Keeps one application without a display from the first test to the last.
struct Toolkit : doctest::IReporter {
    explicit Toolkit(const doctest::ContextOptions & /*options*/) {}
    void test_run_start() override
    {
        // An ordinary screen, unless the test is run for another one; a path with a drive letter is not accepted there.
        if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen:"))
#ifdef _WIN32
            qputenv("QT_QPA_PLATFORM", "offscreen");
#else
            // Relative, because the toolkit reads the path as Latin-1.
            qputenv("QT_QPA_PLATFORM",
                    ("offscreen:configfile=" + std::filesystem::proximate(ININ_SCREENS).string() + "/1920x1080.json")
                        .c_str());
#endif
        // The platform logs a message for each window that it does not place.
        qputenv("QT_LOGGING_RULES", "qt.qpa.*=false;default.warning=true");
        static int count = 1;
        static char name[] = "viewer_window_test";
        static char *arguments[] = {name, nullptr};
        m_application = std::make_unique<QApplication>(count, arguments);
        applyStyle(*m_application);
    }
    void test_run_end(const doctest::TestRunStats & /*stats*/) override
    {
        m_application.reset();
    }
    void report_query(const doctest::QueryData & /*data*/) override {}
    void test_case_start(const doctest::TestCaseData & /*data*/) override {}
    void test_case_reenter(const doctest::TestCaseData & /*data*/) override {}
    void test_case_end(const doctest::CurrentTestCaseStats & /*stats*/) override {}
    void test_case_exception(const doctest::TestCaseException & /*exception*/) override {}
    void subcase_start(const doctest::SubcaseSignature & /*signature*/) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData & /*data*/) override {}
    void log_message(const doctest::MessageData & /*data*/) override {}
    void test_case_skipped(const doctest::TestCaseData & /*data*/) override {}

private:
    std::unique_ptr<QApplication> m_application;
};

} // namespace

REGISTER_LISTENER("toolkit", 0, Toolkit);

std::vector<Row> differentRows(int count)
{
    std::vector<Row> rows;
    for (int i = 1; i <= count; ++i) {
        rows.push_back(ordinaryRow());
        rows.back()["利用者氏名"] = "甲" + std::to_string(i);
        rows.back()["利用者住所"] = "香川県高松市番町" + std::to_string(i);
    }
    return rows;
}

PaperPrinter::PaperPrinter(const QString &path, int pages) : QPrinter(HighResolution), m_pages(pages)
{
    setOutputFormat(PdfFormat);
    setOutputFileName(path);
}

bool PaperPrinter::newPage()
{
    return --m_pages > 0 && QPrinter::newPage();
}

WindowWorld::WindowWorld(const std::vector<Row> &rows, const std::string &form)
    : script(writePrintJob(folder, form, rows))
{
}

std::string WindowWorld::jobPath(std::size_t job) const
{
    return (outputFolder.empty() ? folder.path() : outputFolder) + "/job" + std::to_string(job) + ".pdf";
}

ViewerServices WindowWorld::services()
{
    ViewerServices services;
    services.printers = [this] { return printers; };
    services.paths.spool = spool;
    services.paths.makePrinter = [this](const PrintOrder &order) -> std::unique_ptr<QPrinter> {
        orders.push_back(order);
        return std::make_unique<PaperPrinter>(QString::fromStdString(jobPath(jobs++)), pagesPerJob);
    };
    services.askClose = [this](QWidget *, const QString &state) {
        closeStates.push_back(state);
        if (closeAnswers.empty()) return CloseAnswer::keepPrinting;
        const CloseAnswer answer = closeAnswers.front();
        closeAnswers.pop_front();
        return answer;
    };
    services.showMessage = [this](QWidget *, QMessageBox::Icon, const QString &text) { messages.push_back(text); };
    services.mayReplace = [this](QWidget *, const QString &text) {
        messages.push_back(text);
        return mayReplace;
    };
    services.askPdfFile = [this](QWidget *, const QString &offered, const QString &name) {
        offeredFolders.push_back(offered);
        offeredNames.push_back(name);
        return pdfFile;
    };
    services.askFolder = [this](QWidget *, const QString &offered) {
        offeredFolders.push_back(offered);
        return pdfFolder;
    };
    services.today = [] { return DateSerial(2024, 5, 20); };
    services.now = [this] { return now; };
    if (!ledgerFile.empty())
        services.ledgerPath = [this](const LedgerSettings &settings) {
            return settings.isUsed ? ledgerFile : std::string();
        };
    services.mayErase = [this](QWidget *, const QString &text) {
        messages.push_back(text);
        return mayErase;
    };
    services.settingsFile = QString::fromStdString(folder / "settings.ini");
    return services;
}

PrintOrder WindowWorld::order() const
{
    PrintOrder order;
    order.printer = QStringLiteral("紙");
    return order;
}

void WindowWorld::openWindow()
{
    window = std::make_unique<ViewerWindow>(script, std::make_unique<OpenLetters>(script), services());
    window->show();
    settle();
}

void WindowWorld::inPrintDialog(const std::function<void(QDialog &)> &act) const
{
    QTimer::singleShot(0, window.get(), [this, act] {
        auto *const dialog = window->findChild<QDialog *>(QStringLiteral("printDialog"));
        if (dialog == nullptr) return inPrintDialog(act); // not opened yet
        act(*dialog);
        dialog->findChild<QPushButton *>(QStringLiteral("printNow"))->click();
    });
}

QString WindowWorld::printNotices() const
{
    QString text;
    QTimer::singleShot(0, window.get(), [&] {
        auto *const dialog = window->findChild<QDialog *>(QStringLiteral("printDialog"));
        const auto *const label = dialog->findChild<QLabel *>(QStringLiteral("printNotices"));
        if (label->isVisible()) text = label->text();
        dialog->reject();
    });
    window->askPrint();
    return text;
}

void WindowWorld::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyPress(window->windowHandle(), key, modifiers);
    QTest::keyRelease(window->windowHandle(), key, modifiers);
}

std::string WindowWorld::shownNumber() const
{
    return find<QWidget>("pageView")->accessibleDescription().section(u'番', 0, 0).toStdString();
}

void WindowWorld::settle() const
{
    REQUIRE(QTest::qWaitForWindowExposed(window.get()));
    window->finishCheck();
    QApplication::processEvents();
}

std::size_t pageCount(const std::string &pdf)
{
    const std::string command = "pdfinfo '" + pdf + "' | sed -n 's/^Pages: *//p' > '" + pdf + ".count'";
    REQUIRE(std::system(command.c_str()) == 0);
    const std::string count = bytesOf(pdf + ".count");
    REQUIRE(!count.empty());
    return std::stoul(count);
}

QImage pageImage(const std::string &pdf, int page)
{
    const std::string number = std::to_string(page);
    const std::string command =
        "pdftoppm -r 72 -png -singlefile -f " + number + " -l " + number + " '" + pdf + "' '" + pdf + ".page'";
    REQUIRE(std::system(command.c_str()) == 0);
    const QImage image(QString::fromStdString(pdf + ".page.png"));
    REQUIRE(!image.isNull());
    return image.convertToFormat(QImage::Format_Grayscale8);
}

double difference(const QImage &a, const QImage &b)
{
    const QImage grayA = a.convertToFormat(QImage::Format_Grayscale8);
    const QImage grayB = b.convertToFormat(QImage::Format_Grayscale8);
    const int width = std::min(a.width(), b.width()), height = std::min(a.height(), b.height());
    double sum = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) sum += std::abs(qGray(grayA.pixel(x, y)) - qGray(grayB.pixel(x, y)));
    return sum / (double{1} * width * height);
}

} // namespace inin::viewer::test
