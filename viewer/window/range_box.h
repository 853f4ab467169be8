#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;

namespace inin::viewer {

class LetterTicks;

/// The box "1-3,5" with the number of letters it means. Box and ticks agree whenever the box can be read; while it cannot,
/// a sentence tells so and the ticks stay.
class RangeBox : public QWidget {
public:
    explicit RangeBox(QWidget *parent = nullptr);

    /// Must outlive its showing.
    void showTicks(LetterTicks *ticks);
    /// Ticks were set elsewhere.
    void ticksChanged();
    /// False while the box holds what is no list of letters.
    [[nodiscard]] bool isReadable() const { return m_isReadable; }
    void focusBox();
    /// Called when the user has changed the ticks by the box.
    std::function<void()> onChanged;

private:
    void read();
    void showCount();

    LetterTicks *m_ticks = nullptr;
    QLineEdit *m_box;
    QLabel *m_count;
    QLabel *m_fault;
    bool m_isReadable = true;
};

} // namespace inin::viewer
