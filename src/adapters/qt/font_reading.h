#pragma once

#include <QObject>

#include <future>
#include <stdexcept>

namespace inin::qt {

/// The system has no font with Japanese characters. The message names what to install.
class NoJapaneseFont : public std::runtime_error {
public:
    NoJapaneseFont();
};

/// Reads the system's fonts while the first window waits for the display. Reading takes about as long as showing an
/// empty window, and the first window of the program has only a picture: it need not wait for the fonts or compete with
/// their reading for the processor. Must not outlive the application object.
class FontReading {
public:
    FontReading();
    /// Sets the application's font to one with Japanese characters, once; waits for the reading if it has not finished.
    /// Throws NoJapaneseFont.
    void finish();

private:
    void begin();

    QObject m_firstWait; ///< its timer is removed with it
    bool m_hasBegun = false;
    std::future<bool> m_hasJapanese; ///< consumed by the first finish
};

} // namespace inin::qt
