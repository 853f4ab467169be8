#pragma once

#include "adapters/qt/font_reading.h"
#include "adapters/qt/qt_message_boxes.h"
#include "adapters/qt/qt_windows.h"
#include "platform/platform.h"

#include <memory>
#include <string>

namespace inin {

/// The ports of this system with real windows, for a site's folder. Showing a window throws NoJapaneseFont if no
/// installed font can display its text.
class Desktop {
public:
    /// The reading of the fonts must outlive it.
    Desktop(const std::string &folder, qt::EventEdge &edge, qt::FontReading &fonts);
    [[nodiscard]] Platform platform();

private:
    std::unique_ptr<Profile> m_profile;
    std::unique_ptr<Files> m_files;
    std::unique_ptr<Clock> m_clock;
    std::unique_ptr<Locale> m_locale;
    std::unique_ptr<Processes> m_processes;
    std::unique_ptr<Automation> m_automation;
    std::unique_ptr<Database> m_database;
    qt::QtWindows m_windows;
    qt::QtMessageBoxes m_boxes;
};

} // namespace inin
