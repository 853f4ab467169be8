#pragma once

#include <future>
#include <stdexcept>

namespace inin::qt {

/// The system has no font with Japanese characters. The message names what to install.
class NoJapaneseFont : public std::runtime_error {
public:
    NoJapaneseFont();
};

/// Reads the system's fonts in another thread while the program shows its first window, which has only a picture, and
/// loads the conditions screen: the reading takes about as long as both. Must not outlive the application object.
class FontReading {
public:
    FontReading();
    /// Sets the application's font to one with Japanese characters, once; waits for the reading if it has not finished.
    /// Throws NoJapaneseFont.
    void finish();

private:
    std::future<bool> m_hasJapanese; ///< consumed by the first finish
};

} // namespace inin::qt
