#pragma once

#include "viewer/window/ledger_lines.h"

#include <QWidget>

#include <functional>

class QMenu;

namespace inin::viewer {

/// The lines about the ledger above the list: what has changed since the last run, and who has a printed letter already.
/// Hidden while neither has anything to show.
class ComparedBar : public QWidget {
public:
    /// `desk` must outlive this.
    explicit ComparedBar(const LedgerDesk &desk, QWidget *parent = nullptr);

    void showLines(Date now);
    /// The runs to compare with, for the window's menu too.
    [[nodiscard]] QMenu *runMenu() const { return m_runs; }

    std::function<void(const QString &target)> onLink;
    std::function<void(const RunSummary &run)> onRun;

private:
    void fillMenu();

    const LedgerDesk &m_desk;
    Date m_now;
    LinkLine *m_compared, *m_printed;
    QMenu *m_runs;
};

} // namespace inin::viewer
