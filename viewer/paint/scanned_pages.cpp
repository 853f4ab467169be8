#include "viewer/paint/scanned_pages.h"

#include "runtime/runtime_error.h"
#include "system/whole_file.h"
#include "viewer/codes/qr_codes.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <algorithm>

namespace inin::viewer {

namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 30;
constexpr int kMostMegabytes = 1024; ///< of one decoded picture

/// Smaller pictures are read as quickly and as well.
QSize limited(QSize size)
{
    const QSize most(ScannedFile::kLongestSide, ScannedFile::kLongestSide);
    return size.width() > most.width() || size.height() > most.height() ? size.scaled(most, Qt::KeepAspectRatio) : size;
}

/// Transparent parts are white paper.
QImage greyOf(const QImage &picture)
{
    if (!picture.hasAlphaChannel()) return picture.convertToFormat(QImage::Format_Grayscale8);
    QImage paper(picture.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, picture);
    return paper.convertToFormat(QImage::Format_Grayscale8);
}

/// The pages of a picture file.
class PicturePages : public PageSource {
public:
    explicit PicturePages(const std::string &bytes) : m_bytes(QByteArray::fromStdString(bytes))
    {
        const QByteArrayList formats = {"png", "jpeg", "tiff"};
        if (!formats.contains(open().format()))
            throw RuntimeError(error_number::invalidCall, "PDF、PNG、JPEG、TIFF のどれでもありません。");
        m_pageCount = std::max(1, open().imageCount());
    }
    [[nodiscard]] int pages() const override { return m_pageCount; }
    [[nodiscard]] QImage page(int index) override
    {
        QImageReader &reader = open();
        if (index > 0 && !reader.jumpToImage(index)) return {};
        if (reader.size().isValid()) reader.setScaledSize(limited(reader.size()));
        const QImage picture = reader.read();
        return picture.isNull() ? picture : greyOf(picture);
    }

private:
    /// A reader at the first page. It recognises the kind by the bytes, whatever the file is called.
    QImageReader &open()
    {
        m_reader.reset();
        m_buffer = std::make_unique<QBuffer>(&m_bytes);
        m_buffer->open(QIODevice::ReadOnly);
        m_reader = std::make_unique<QImageReader>(m_buffer.get());
        return *m_reader;
    }

    QByteArray m_bytes;
    std::unique_ptr<QBuffer> m_buffer;
    std::unique_ptr<QImageReader> m_reader;
    int m_pageCount = 1;
};

bool isPdf(std::string_view bytes)
{
    // Headers of a mail or a scanner may precede the PDF.
    constexpr std::size_t kSignatureWithin = 1024;
    return bytes.substr(0, kSignatureWithin).find("%PDF-") != std::string_view::npos;
}

} // namespace

ScannedFile::ScannedFile(const std::string &path)
try {
    QImageReader::setAllocationLimit(kMostMegabytes);
    std::string bytes = readWholeFile(path, kLargestFile);
    if (isPdf(bytes))
        m_pages = openPdf(std::move(bytes), kLongestSide);
    else
        m_pages = std::make_unique<PicturePages>(bytes);
} catch (const RuntimeError &error) {
    const std::string &sentence = error.description();
    throw RuntimeError(error.number(),
                       sentence.find(path) == std::string::npos ? "「" + path + "」：" + sentence : sentence);
}

ScannedFile::~ScannedFile() = default;

int ScannedFile::pages() const
{
    return m_pages->pages();
}

QImage ScannedFile::page(int index)
{
    return m_pages->page(index);
}

bool canReadScans()
{
    return canReadQrCodes();
}

std::vector<std::string> codesOn(const QImage &greyPage)
{
    if (greyPage.isNull()) return {};
    return readQrCodes({{greyPage.constBits(), static_cast<std::size_t>(greyPage.sizeInBytes())},
                        greyPage.width(),
                        greyPage.height(),
                        static_cast<int>(greyPage.bytesPerLine())});
}

} // namespace inin::viewer
