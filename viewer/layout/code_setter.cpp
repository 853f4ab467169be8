#include "viewer/layout/code_setter.h"

#include "viewer/codes/qr_codes.h"

#include <algorithm>

namespace inin::viewer {

namespace {

/// The dark modules as one path: separate ones would leave light seams on the screen. The code is a square in the middle
/// of its box.
Path pathOf(const QrModules &modules, const Box &box)
{
    const double side = std::min(box.width, box.height), module = side / (modules.size + 2 * kQuietZone);
    const double left = box.left + (box.width - side) / 2 + kQuietZone * module;
    const double top = box.top + (box.height - side) / 2 + kQuietZone * module;
    Path path;
    for (int y = 0; y < modules.size; ++y) {
        for (int x = 0; x < modules.size; ++x) {
            const int begin = x;
            while (x < modules.size && modules.isDark(x, y)) ++x;
            if (x == begin) continue;
            const Path run =
                rectanglePath({left + begin * module, top + y * module, (x - begin) * module, module}, 0, 0);
            path.insert(path.end(), run.begin(), run.end());
        }
    }
    return path;
}

} // namespace

void CodeSetter::show(std::string_view text)
{
    if (text == m_last) return;
    m_last = text;
    m_paths.clear();
    // The hyphens are for people: digits alone need fewer and therefore larger modules.
    std::string digits(text);
    std::erase(digits, '-');
    if (digits.empty()) return;
    const QrModules modules = writeQr(digits);
    for (const CodeCommand &code : m_codes)
        m_paths.push_back({pathOf(modules, code.box), Color{}, false, {}, code.place});
}

} // namespace inin::viewer
