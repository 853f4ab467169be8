#include "viewer/window/check_panel.h"

#include "viewer/check/check_text.h"
#include "viewer/window/cut_text.h"
#include "viewer/window/finding_index.h"
#include "viewer/window/open_letters.h"

#include <QHeaderView>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

CheckPanel::CheckPanel(QWidget *parent) : QWidget(parent), m_heading(new CutLabel(this)), m_tree(new QTreeView(this))
{
    m_heading->setObjectName(u"checkHeading"_s);
    m_tree->setObjectName(u"checkTree"_s);
    m_tree->setAccessibleName(u"点検の結果"_s);
    m_tree->setModel(&m_model);
    m_tree->setUniformRowHeights(true);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setAllColumnsShowFocus(true);
    constexpr int kHeadingWidth = 20;
    m_tree->setColumnWidth(0, m_tree->fontMetrics().horizontalAdvance(u'漢') * kHeadingWidth);
    QObject::connect(m_tree, &QTreeView::clicked, this, [this](const QModelIndex &index) { open(index); });
    QObject::connect(m_tree, &QTreeView::activated, this, [this](const QModelIndex &index) { open(index); });
    // The tree is still handling the click, so its rows must not change yet.
    m_model.onSwitched = [this](Cause cause, bool isOn) {
        QTimer::singleShot(0, this, [this, cause, isOn] {
            if (onSwitched) onSwitched(cause, isOn);
        });
    };
    auto *const layout = new QVBoxLayout(this);
    constexpr int kRoom = 6;
    layout->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
    layout->addWidget(m_heading);
    layout->addWidget(m_tree);
}

void CheckPanel::open(const QModelIndex &index) const
{
    if (const auto letter = m_model.letterAt(index); letter && onLetter) onLetter(*letter);
}

/// Names are at the end of the lines and must be visible; the remedy keeps its share.
void CheckPanel::widenFirstColumn()
{
    constexpr double kShare = 0.6;
    constexpr int kMeasuredRows = 100, kRoom = 12;
    int widest = 0;
    for (int branch = 0; branch < m_model.rowCount({}); ++branch) {
        const QModelIndex parent = m_model.index(branch, 0, {});
        for (int row = 0; row < std::min(m_model.rowCount(parent), kMeasuredRows); ++row)
            widest = std::max(widest,
                              m_tree->fontMetrics().horizontalAdvance(m_model.index(row, 0, parent).data().toString()));
    }
    const int least = m_tree->columnWidth(0), most = std::max(least, static_cast<int>(width() * kShare));
    m_tree->setColumnWidth(0, std::clamp(widest + 2 * m_tree->indentation() + kRoom, least, most));
}

QString checkHeading(std::size_t flagged, std::size_t runNotes)
{
    QString heading = flagged == 0 ? u"点検：注意が必要な委任状はありません。"_s
                                   : u"点検：%1通に注意があります。そのまま印刷することもできます。"_s.arg(flagged);
    if (runNotes > 0) heading += u"全体の注意が%1件あります。"_s.arg(runNotes);
    return heading;
}

void CheckPanel::showRunning()
{
    m_heading->setLine(u"点検しています…"_s);
}

void CheckPanel::show(const OpenLetters *letters, const FindingIndex *findings, const CauseSet &switchedOff)
{
    m_model.show(letters, findings, switchedOff);
    QString heading = checkHeading(lettersIn(findings->all()), findings->runNotes().size());
    if (switchedOff.any()) heading += u"行わない点検が%1種類あります。"_s.arg(switchedOff.count());
    m_heading->setLine(heading);
    // Without rows only the heading remains.
    m_tree->setVisible(hasRows());
    setMaximumHeight(hasRows() ? QWIDGETSIZE_MAX : sizeHint().height());
    // A few findings are shown expanded; longer lists are opened cause by cause.
    constexpr std::size_t kFew = 30;
    if (findings->all().size() + findings->runNotes().size() + letters->notices.size() <= kFew) m_tree->expandAll();
    widenFirstColumn();
}

} // namespace inin::viewer
