#include "viewer/document/form_file.h"

#include "runtime/runtime_error.h"
#include "viewer/form/svg_reader.h"
#include "viewer/io/file_beside.h"

#include <fmt/format.h>

namespace inin::viewer {

namespace {

constexpr std::size_t kLargestPicture = std::size_t{1} << 23;

} // namespace

FormDocument readFormFile(const std::string &path, std::string_view bytes, std::vector<StampedFile> &pictures)
try {
    return readSvg(bytes, [&](const std::string &name) {
        const std::string file = pathBeside(path, name);
        pictures.push_back({file, stampOf(file)});
        return readFileBeside(path, name, kLargestPicture);
    });
} catch (const RuntimeError &error) {
    throw RuntimeError(error.number(), fmt::format("「{}」：{}", path, error.description()));
}

} // namespace inin::viewer
