#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;

namespace inin::viewer {

class LetterTicks;

/// The box "1-3,5" with the number of selected letters. Box and ticks agree while the text is valid; otherwise the
/// ticks stay and a sentence reports the error.
class RangeBox : public QWidget {
public:
    explicit RangeBox(QWidget *parent = nullptr);

    /// `ticks` must stay valid while it is shown.
    void showTicks(LetterTicks *ticks);
    /// Call after changing ticks elsewhere.
    void ticksChanged();
    /// False while the text is not a list of letters.
    [[nodiscard]] bool isReadable() const { return m_isReadable; }
    void focusBox();
    /// Called when the user changes ticks in the box.
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
