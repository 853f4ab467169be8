#include "adapters/qt/window_fixture.h"

#include "adapters/qt/qt_text.h"
#include "support/list_answers.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include <stdexcept>

namespace inin {

WindowFixture::WindowFixture()
{
    auto &answers = world.database.resultsByText;
    answers.emplace_back(kStaffSql, staffMembers({{std::int32_t{11}, "佐藤 花子"}, {std::int32_t{12}, "鈴木 次郎"}}));
    answers.emplace_back(kInsuranceSql, insuranceKinds({{std::int32_t{1}, "国保"}, {std::int32_t{2}, "後期"}}));
    app.gcsAppPath = world.app.gcsAppPath;
    app.iKyotenCd = world.app.iKyotenCd;
    app.iKyotenEb = world.app.iKyotenEb;
}

void Turns::then(std::function<void()> act)
{
    m_acts.push_back(std::move(act));
    plan();
}

/// The next act is planned before the current one runs, so that a loop inside it is served.
void Turns::plan()
{
    if (m_isPlanned || m_acts.empty()) return;
    m_isPlanned = true;
    QTimer::singleShot(0, &m_context, [this] {
        m_isPlanned = false;
        const auto act = std::move(m_acts.front());
        m_acts.pop_front();
        plan();
        act();
    });
}

std::string answerTopBox()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (box == nullptr) throw std::logic_error("no box is shown");
    const std::string text = fromQt(box->text());
    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    return text;
}

} // namespace inin
