#include "runtime/runtime_error.h"
#include "viewer/paint/page_source.h"

#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr double kDotsPerInch = 200, kPointsPerInch = 72;

class PopplerPages : public PageSource {
public:
    PopplerPages(std::string bytes, int longestSide) : m_bytes(std::move(bytes)), m_longestSide(longestSide)
    {
        // Damage is reported once by us instead of line by line on the error output.
        poppler::set_debug_error_function([](const std::string &, void *) {}, nullptr);
        m_document.reset(poppler::document::load_from_raw_data(m_bytes.data(), static_cast<int>(m_bytes.size())));
        if (m_document && m_document->is_locked())
            throw RuntimeError(error_number::invalidCall, "パスワードの付いた PDF は開けません。");
        if (!m_document || m_document->pages() < 1)
            throw RuntimeError(error_number::invalidCall, "壊れているため、PDF として開けません。");
    }

    [[nodiscard]] int pages() const override { return m_document->pages(); }

    [[nodiscard]] QImage page(int index) override
    {
        const std::unique_ptr<poppler::page> page(m_document->create_page(index));
        if (!page) return {};
        const poppler::rectf paper = page->page_rect();
        const double longest = std::max(paper.width(), paper.height());
        if (!(longest > 0)) return {};
        const double dots = std::min(kDotsPerInch, m_longestSide * kPointsPerInch / longest);
        poppler::page_renderer renderer;
        renderer.set_image_format(poppler::image::format_gray8);
        renderer.set_render_hint(poppler::page_renderer::antialiasing);
        renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
        const poppler::image picture = renderer.render_page(page.get(), dots, dots);
        if (!picture.is_valid()) return {};
        const QImage view(reinterpret_cast<const uchar *>(picture.const_data()), picture.width(), picture.height(),
                          picture.bytes_per_row(), QImage::Format_Grayscale8);
        return view.copy();
    }

private:
    std::string m_bytes; ///< which the document uses
    int m_longestSide;
    std::unique_ptr<poppler::document> m_document;
};

} // namespace

std::unique_ptr<PageSource> openPdf(std::string bytes, int longestSide)
{
    return std::make_unique<PopplerPages>(std::move(bytes), longestSide);
}

} // namespace inin::viewer
