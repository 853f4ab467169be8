#pragma once

#include <QFrame>

#include <functional>
#include <optional>

class QLabel;
class QPushButton;
class QSpinBox;

namespace inin::viewer {

/// The numbers of the letters that were sent, as counted from 1.
struct SentNumbers {
    int least = 1, greatest = 1;
    int last = 1; ///< the number of the letter that comes out last
};

/// Asks after a print whether all letters have come out. It is not modal, covers nothing and stays until it is answered.
class PaperBar : public QFrame {
public:
    explicit PaperBar(QWidget *parent = nullptr);

    void ask(const QString &text, const SentNumbers &numbers);
    /// Shows the answer's effect, and offers to print the rest under the words `action`.
    void showRest(const QString &text, const QString &action);
    /// True while it offers to print the rest.
    [[nodiscard]] bool isOffering() const { return !isHidden() && m_state == State::rest; }
    [[nodiscard]] QString text() const;

    std::function<void()> onAllOut;
    /// Called with the number of the last good letter, or without one if none came out.
    std::function<void(std::optional<int> lastGood)> onOutUpTo;
    std::function<void()> onPrintRest;
    /// Called when the answer's effect has been seen and nothing is to be printed.
    std::function<void()> onClose;

private:
    enum class State { question, number, rest };
    void showState(State state);
    void announce(const QString &text);

    State m_state = State::question;
    QString m_question;
    QLabel *m_text;
    QPushButton *m_all, *m_partly, *m_set, *m_back, *m_rest, *m_close;
    QSpinBox *m_number;
};

} // namespace inin::viewer
