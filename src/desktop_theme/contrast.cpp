#include "desktop_theme/contrast.h"

#include <algorithm>
#include <cmath>

namespace inin::theme {

namespace {

double linear(double part)
{
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

QColor opaque(const QColor &colour, const QColor &background)
{
    const float alpha = colour.alphaF();
    const auto mixed = [alpha](float own, float below) { return own * alpha + below * (1 - alpha); };
    return QColor::fromRgbF(mixed(colour.redF(), background.redF()), mixed(colour.greenF(), background.greenF()),
                            mixed(colour.blueF(), background.blueF()));
}

double contrastRatio(const QColor &a, const QColor &b)
{
    constexpr double kFlare = 0.05;
    const double first = luminance(a) + kFlare, second = luminance(b) + kFlare;
    return std::max(first, second) / std::min(first, second);
}

QColor withContrast(const QColor &colour, const QColor &background, double ratio)
{
    // The luminance at which black and white have the same contrast.
    constexpr double kMiddle = 0.179;
    constexpr int kSteps = 256;
    if (contrastRatio(colour, background) >= ratio) return colour;
    const float end = luminance(background) > kMiddle ? 0.0F : 1.0F;
    const float begin = colour.lightnessF();
    const auto at = [&](int step) {
        return QColor::fromHslF(std::max(colour.hslHueF(), 0.0F), colour.hslSaturationF(),
                                begin + (end - begin) * static_cast<float>(step) / kSteps)
            .toRgb();
    };
    // Once the contrast is enough, it is enough at all further steps.
    int tooFew = 0, enough = kSteps;
    while (enough - tooFew > 1) {
        const int step = (tooFew + enough) / 2;
        (contrastRatio(at(step), background) < ratio ? tooFew : enough) = step;
    }
    return at(enough);
}

} // namespace inin::theme
