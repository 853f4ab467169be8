#include "viewer/window/compared_bar.h"

#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

ComparedBar::ComparedBar(const LedgerDesk &desk, QWidget *parent)
    : QWidget(parent), m_desk(desk), m_compared(new LinkLine(this)), m_printed(new LinkLine(this)),
      m_runs(new QMenu(u"比べる相手(&M)"_s, this))
{
    m_compared->setObjectName(u"comparedLine"_s);
    m_runs->setObjectName(u"comparedRunMenu"_s);
    m_runs->setEnabled(false);
    QObject::connect(m_runs, &QMenu::aboutToShow, this, [this] { fillMenu(); });
    m_printed->setObjectName(u"printedLine"_s);
    m_compared->setAccessibleName(u"前回との違い"_s);
    m_printed->setAccessibleName(u"この期間に印刷済みの人"_s);
    for (LinkLine *const line : {m_compared, m_printed})
        line->onLink = [this](const QString &target) {
            if (target == QLatin1String(kRunsLink))
                m_runs->popup(mapToGlobal(m_compared->geometry().bottomLeft()));
            else if (onLink)
                onLink(target);
        };
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_compared);
    layout->addWidget(m_printed);
    hide();
}

void ComparedBar::showLines(Date now)
{
    m_now = now;
    m_compared->setParts(comparedLine(m_desk, now));
    m_printed->setParts(printedLine(m_desk));
    m_runs->setEnabled(!m_desk.earlierRuns().empty());
    setVisible(m_desk.comparedRun() || m_desk.printedAlready() > 0);
}

void ComparedBar::fillMenu()
{
    constexpr std::size_t kMost = 24;
    m_runs->clear();
    const std::vector<RunSummary> &runs = m_desk.earlierRuns();
    for (const RunSummary &run : std::span(runs).first(std::min(runs.size(), kMost))) {
        QAction *const action = m_runs->addAction(runText(run, m_now));
        action->setCheckable(true);
        action->setChecked(m_desk.comparedRun() && m_desk.comparedRun()->id == run.id);
        QObject::connect(action, &QAction::triggered, this, [this, run] {
            if (onRun) onRun(run);
        });
    }
}

} // namespace inin::viewer
