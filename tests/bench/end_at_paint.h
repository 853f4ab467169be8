#pragma once

#include <QObject>
#include <QString>

namespace inin::bench {

/// Ends the process when a window of that name, with all that is in it, has been painted and handed to the display, and
/// writes the steady clock's count of that moment to the standard output.
class EndAtPaint : public QObject {
public:
    /// Watches from now on; lives to the end of the process.
    static void of(const char *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit EndAtPaint(const char *window) : m_window(QString::fromLatin1(window)) {}
    [[nodiscard]] bool isOurs(QObject *watched) const;
    [[noreturn]] static void tellAndEnd();

    QString m_window;
    bool m_hasPainted = false;
};

} // namespace inin::bench
