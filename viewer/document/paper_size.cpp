#include "viewer/document/paper_size.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

namespace inin::viewer {

namespace {

/// Millimetres.
struct NamedPaper {
    double width, height;
    std::string_view name, media;
};
constexpr NamedPaper kNamedPapers[] = {
    {210, 297, "A4", "iso_a4_210x297mm"},         {148, 210, "A5", "iso_a5_148x210mm"},
    {182, 257, "B5", "jis_b5_182x257mm"},         {297, 420, "A3", "iso_a3_297x420mm"},
    {257, 364, "B4", "jis_b4_257x364mm"},         {105, 148, "A6", "iso_a6_105x148mm"},
    {100, 148, "はがき", "jpn_hagaki_100x148mm"}, {120, 235, "長形3号", "jpn_chou3_120x235mm"},
    {90, 205, "長形4号", "jpn_chou4_90x205mm"},   {240, 332, "角形2号", "jpn_kaku2_240x332mm"},
};
/// The script's papers, in the order of the enumeration.
constexpr Paper kScriptPapers[] = {Paper::A4, Paper::A5, Paper::B5};

Point pointsOf(const NamedPaper &paper)
{
    return {paper.width * kPointsPerMillimetre, paper.height * kPointsPerMillimetre};
}

const NamedPaper *namedPaper(Point size)
{
    const auto *const found =
        std::ranges::find_if(kNamedPapers, [&](const NamedPaper &paper) { return isSamePaper(pointsOf(paper), size); });
    return found == std::end(kNamedPapers) ? nullptr : found;
}

Point upright(Point size)
{
    return {std::min(size.x, size.y), std::max(size.x, size.y)};
}

/// "100" or "100.5".
std::string millimetres(double points)
{
    return fmt::format("{:g}", std::round(points / kPointsPerMillimetre * 10) / 10);
}

} // namespace

Point sizeOf(Paper paper)
{
    return pointsOf(kNamedPapers[std::ranges::find(kScriptPapers, paper) - std::begin(kScriptPapers)]);
}

bool isSamePaper(Point a, Point b)
{
    constexpr double kSameSize = 2;
    return std::abs(a.x - b.x) < kSameSize && std::abs(a.y - b.y) < kSameSize;
}

bool isStandardPaper(Point size)
{
    return namedPaper(upright(size)) != nullptr;
}

std::string paperName(Point size)
{
    if (const NamedPaper *const paper = namedPaper(upright(size)))
        return std::string(paper->name) + (size.x > size.y ? "横" : "");
    return fmt::format("{} × {} mm", millimetres(size.x), millimetres(size.y));
}

std::string paperMedia(Point size)
{
    if (const NamedPaper *const paper = namedPaper(upright(size))) return std::string(paper->media);
    const std::string extent = fmt::format("{}x{}mm", millimetres(size.x), millimetres(size.y));
    return fmt::format("custom_{0}_{0}", extent);
}

} // namespace inin::viewer
