#include "adapters/native/native_platform.h"
#include "suite_text/code_page_932.h"

namespace inin::posix {

namespace {

class PosixLocale : public Locale {
public:
    /// The Japanese form regardless of LANG: the suite's texts and statements are built from it.
    Regional regional() override { return Regional{}; }
    std::string toCodePage(std::string_view utf8) override { return encodeCp932(utf8); }
    std::string fromCodePage(std::string_view bytes) override { return decodeCp932(bytes); }
};

} // namespace

} // namespace inin::posix

std::unique_ptr<inin::Locale> inin::makeSystemLocale()
{
    return std::make_unique<posix::PosixLocale>();
}
