#pragma once

#include "viewer/window/check_model.h"

#include <QWidget>

#include <functional>

class QTreeView;

namespace inin::viewer {

class CutLabel;

/// The check's result in one line: how many letters are flagged, and how many notes concern the whole run.
[[nodiscard]] QString checkHeading(std::size_t flagged, std::size_t runNotes);

/// The check's findings, below the page. A click or Enter on a letter shows it.
class CheckPanel : public QWidget {
public:
    explicit CheckPanel(QWidget *parent = nullptr);

    /// Letters and findings must stay valid while they are shown.
    void show(const OpenLetters *letters, const FindingIndex *findings, const CauseSet &switchedOff);
    /// Shows that the letters are being checked.
    void showRunning();
    [[nodiscard]] bool hasRows() const { return m_model.rowCount() > 0; }
    std::function<void(std::size_t letter)> onLetter;
    /// The user switches a cause on or off.
    std::function<void(Cause cause, bool isOn)> onSwitched;

private:
    void open(const QModelIndex &index) const;
    void widenFirstColumn();

    CheckModel m_model;
    CutLabel *m_heading;
    QTreeView *m_tree;
};

} // namespace inin::viewer
