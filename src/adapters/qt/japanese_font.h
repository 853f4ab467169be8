#pragma once

#include <QFont>
#include <QObject>

#include <future>
#include <stdexcept>

namespace inin::qt {

/// The system has no letters for Japanese text. The words say what to install.
class NoJapaneseFont : public std::runtime_error {
public:
    NoJapaneseFont();
};

/// Reads the system's fonts while the first window waits for the display. That takes about as long as an empty window, and
/// the first window of the program shows a picture only; so it need not wait for the letters, nor share the processor with
/// their reading before that. Lives within the application object.
class FontReading {
public:
    FontReading();
    /// Gives the application a font with Japanese letters, once, and waits for the reading where it must. Throws
    /// NoJapaneseFont.
    void finish();

private:
    void begin();

    QObject m_firstWait; ///< takes its timer along when it goes
    bool m_hasBegun = false;
    std::future<bool> m_hasJapanese; ///< taken by the first finish
};

/// The desktop's own font when it has Japanese letters, else the best one that the system has, at the same size.
[[nodiscard]] QFont japaneseFont(const QFont &desktop);

} // namespace inin::qt
