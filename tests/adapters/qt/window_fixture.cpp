#include "adapters/qt/window_fixture.h"

#include "adapters/qt/qt_text.h"
#include "adapters/qt/window_application.h"
#include "support/list_answers.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include <stdexcept>

namespace inin::qt {

namespace {
/// Milliseconds. With 0, several turns would run in one pass of a loop that was asked to quit in between.
constexpr int kSoon = 1;

/// The application created by the main function of the test program.
WindowApplication &testApplication()
{
    return dynamic_cast<WindowApplication &>(*QCoreApplication::instance());
}
} // namespace

WindowFixture::WindowFixture()
{
    auto &answers = world.database.resultsByText;
    answers.emplace_back(kStaffSql, staffMembers({{std::int32_t{11}, "佐藤 花子"}, {std::int32_t{12}, "鈴木 次郎"}}));
    answers.emplace_back(kInsuranceSql, insuranceKinds({{std::int32_t{1}, "国保"}, {std::int32_t{2}, "後期"}}));
    app.gcsAppPath = world.app.gcsAppPath;
    app.iKyotenCd = world.app.iKyotenCd;
    app.iKyotenEb = world.app.iKyotenEb;
    testApplication().onFault = [this](std::exception_ptr fault) { edge.keep(std::move(fault)); };
}

WindowFixture::~WindowFixture()
{
    testApplication().onFault = {};
}

void Turns::then(std::function<void()> act)
{
    m_acts.push_back(std::move(act));
    plan();
}

/// The next act is scheduled before the current one runs, so that a loop inside it has turns, too.
void Turns::plan()
{
    if (m_isPlanned || m_acts.empty()) return;
    m_isPlanned = true;
    QTimer::singleShot(kSoon, &m_context, [this] {
        m_isPlanned = false;
        if (m_held > 0 || (isDue && !isDue())) return plan();
        const auto act = std::move(m_acts.front());
        m_acts.pop_front();
        plan();
        try {
            act();
        } catch (const std::exception &fault) {
            m_failure += std::string(fault.what()) + "\n";
        }
    });
}

void Turns::hold(const std::function<void()> &work)
{
    ++m_held;
    try {
        work();
    } catch (...) {
        --m_held;
        throw;
    }
    --m_held;
}

/// A closed window may not be gone yet. Keys are delivered to the active window, which a user would click first.
bool TurnWindows::isReady() const
{
    QWidget *box = QApplication::activeModalWidget();
    QWidget *wanted = qobject_cast<QMessageBox *>(box) != nullptr ? box : topWindow();
    if (wanted == nullptr) return true;
    // While a modeless window is topmost, the program is still working.
    if (!wanted->isVisible() || !wanted->isModal()) return false;
    if (!wanted->isActiveWindow()) wanted->activateWindow();
    return wanted->isActiveWindow();
}

std::string answerTopBox()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box == nullptr) throw std::logic_error("no box is shown");
    std::string text = fromQt(box->text());
    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    return text;
}

} // namespace inin::qt
