#pragma once

#include "viewer/window/returns_model.h"
#include "viewer/window/scan_reader.h"
#include "viewer/window/viewer_services.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

namespace inin::viewer {

/// 返送の確認: the printed letters of a period with a tick for each that has come back signed. Letters are ticked by hand,
/// by a hand scanner that types the code, or by scanned files.
class ReturnsWindow : public QDialog {
public:
    /// All must outlive this window. `period` is the one to show first.
    ReturnsWindow(Ledger &ledger, const ViewerServices &services, ViewerSettings &settings,
                  std::optional<MonthRange> period, QWidget *parent = nullptr);

    /// Called after letters were ticked or unticked.
    std::function<void()> onReturned;

    void readFiles(const QStringList &paths);
    [[nodiscard]] bool isReading() const { return m_reader.isReading(); }
    [[nodiscard]] const ReturnsModel &model() const { return m_model; }

    void savePdf();
    void saveCsv();
    void printList();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void done(int result) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildChoice(QBoxLayout *layout);
    void buildTable(QBoxLayout *layout);
    void buildScans(QBoxLayout *layout);
    void buildUnreadable(QBoxLayout *layout);
    void buildOutput(QBoxLayout *layout);
    void followReader();
    void fillPeriods(std::optional<MonthRange> period);
    /// Reads the letters of the period again.
    void reload();
    void fitColumns();
    void fillInsurers();
    void filter();
    void showCount();
    bool tick(const std::vector<int> &rows, bool isReturned);
    void toggleSelected();
    void markTyped();
    void showUnreadable(const QString &words, const QImage &thumbnail);
    [[nodiscard]] QString heading() const;
    [[nodiscard]] std::vector<PrintedLetter> missing() const;
    void save(const QString &ending, const std::function<void(const std::string &path)> &write);

    Ledger &m_ledger;
    const ViewerServices &m_services;
    ViewerSettings &m_settings;
    ReturnsModel m_model;
    ScanReader m_reader;
    std::vector<MonthRange> m_periods;
    QComboBox *m_period = nullptr, *m_insurer = nullptr;
    QLineEdit *m_words = nullptr, *m_code = nullptr;
    QCheckBox *m_onlyMissing = nullptr;
    QTableView *m_table = nullptr;
    QLabel *m_count = nullptr, *m_result = nullptr, *m_unreadableTitle = nullptr;
    QListWidget *m_unreadable = nullptr;
    QPushButton *m_stop = nullptr;
};

} // namespace inin::viewer
