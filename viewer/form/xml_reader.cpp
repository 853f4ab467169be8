#include "viewer/form/xml_reader.h"

#include "runtime/runtime_error.h"

#include <expat.h>
#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <iterator>
#include <limits>
#include <memory>
#include <string>

namespace inin::viewer {

namespace {

/// Separates namespace and name; no namespace contains it.
constexpr char kSeparator = '\n';
/// Namespaces whose names are passed with their usual prefix.
struct PrefixedSpace {
    std::string_view space, prefix;
};
constexpr PrefixedSpace kPrefixedSpaces[] = {{"http://www.w3.org/XML/1998/namespace", "xml:"},
                                             {"http://www.w3.org/1999/xlink", "xlink:"},
                                             {"http://www.inkscape.org/namespaces/inkscape", "inkscape:"}};

/// Empty for a name of another namespace.
std::string prefixedName(std::string_view space, std::string_view name)
{
    const auto *const known = std::ranges::find(kPrefixedSpaces, space, &PrefixedSpace::space);
    return known == std::end(kPrefixedSpaces) ? std::string() : std::string(known->prefix).append(name);
}

[[noreturn]] void refuse(std::string sentence)
{
    throw RuntimeError(error_number::invalidCall, std::move(sentence));
}

std::pair<std::string_view, std::string_view> splitName(const char *whole)
{
    const std::string_view name = whole;
    const std::size_t separator = name.rfind(kSeparator);
    if (separator == std::string_view::npos) return {{}, name};
    return {name.substr(0, separator), name.substr(separator + 1)};
}

class XmlReader {
public:
    XmlReader(std::string_view space, XmlHandler &handler, const XmlLimits &limits)
        : m_space(space), m_handler(handler), m_limits(limits), m_parser(XML_ParserCreateNS(nullptr, kSeparator))
    {
        if (!m_parser) throw RuntimeError(error_number::outOfMemory);
        XML_SetUserData(m_parser.get(), this);
        XML_SetElementHandler(m_parser.get(), &XmlReader::onOpen, &XmlReader::onClose);
        XML_SetCharacterDataHandler(m_parser.get(), &XmlReader::onText);
        XML_SetEntityDeclHandler(m_parser.get(), &XmlReader::onEntity);
    }

    void parse(std::string_view bytes)
    {
        if (bytes.size() > std::size_t{std::numeric_limits<int>::max()}) refuse("ファイルが大きすぎます。");
        const auto size = static_cast<int>(bytes.size());
        const XML_Status status = XML_Parse(m_parser.get(), bytes.data(), size, XML_TRUE);
        if (m_failure) std::rethrow_exception(m_failure);
        if (status == XML_STATUS_OK) return;
        refuse(fmt::format("XML として読めません（{}行目：{}）。", XML_GetCurrentLineNumber(m_parser.get()),
                           XML_ErrorString(XML_GetErrorCode(m_parser.get()))));
    }

private:
    struct ParserDeleter {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    /// An exception must not pass through the C parser: stop the parser and rethrow after it returns.
    template <class Body> static void guarded(void *data, Body &&body)
    {
        auto &reader = *static_cast<XmlReader *>(data);
        if (reader.m_failure) return;
        try {
            body(reader);
        } catch (...) {
            reader.m_failure = std::current_exception();
            XML_StopParser(reader.m_parser.get(), XML_FALSE);
        }
    }

    [[nodiscard]] std::string nameOf(const char *whole) const
    {
        const auto [space, name] = splitName(whole);
        return space.empty() || space == m_space ? std::string(name) : prefixedName(space, name);
    }

    static void onOpen(void *data, const char *name, const char **attributes)
    {
        guarded(data, [&](XmlReader &reader) { reader.open(name, attributes); });
    }
    static void onClose(void *data, const char *name)
    {
        guarded(data, [&](XmlReader &reader) {
            --reader.m_depth;
            reader.m_handler.close(reader.nameOf(name));
        });
    }
    static void onText(void *data, const char *text, int length)
    {
        guarded(data, [&](XmlReader &reader) {
            reader.m_textBytes += static_cast<std::size_t>(length);
            if (reader.m_textBytes > reader.m_limits.textBytes) refuse("文字が多すぎます。");
            reader.m_handler.text({text, static_cast<std::size_t>(length)});
        });
    }
    static void onEntity(void *data, const char *name, int, const char *, int, const char *, const char *, const char *,
                         const char *)
    {
        guarded(data, [&](XmlReader &) { refuse(fmt::format("実体宣言「{}」のあるファイルは開きません。", name)); });
    }

    void open(const char *name, const char **attributes)
    {
        if (++m_elements > m_limits.elements) refuse(fmt::format("要素が多すぎます（{}個まで）。", m_limits.elements));
        if (++m_depth > m_limits.depth) refuse(fmt::format("要素の入れ子が深すぎます（{}段まで）。", m_limits.depth));
        XmlAttributes own;
        for (; *attributes != nullptr; attributes += 2) {
            const auto [space, attribute] = splitName(attributes[0]);
            if (space.empty())
                own.add(attribute, attributes[1]);
            else if (const std::string prefixed = prefixedName(space, attribute); !prefixed.empty())
                own.add(prefixed, attributes[1]);
        }
        m_handler.open(nameOf(name), own);
    }

    std::string m_space;
    XmlHandler &m_handler;
    XmlLimits m_limits;
    std::unique_ptr<XML_ParserStruct, ParserDeleter> m_parser;
    std::exception_ptr m_failure;
    std::size_t m_elements = 0, m_depth = 0, m_textBytes = 0;
};

} // namespace

std::optional<std::string_view> XmlAttributes::find(std::string_view name) const
{
    const auto found = std::ranges::find(m_pairs, name, &std::pair<std::string, std::string_view>::first);
    if (found == m_pairs.end()) return std::nullopt;
    return found->second;
}

std::string_view XmlAttributes::get(std::string_view name, std::string_view otherwise) const
{
    return find(name).value_or(otherwise);
}

void readXml(std::string_view bytes, std::string_view space, XmlHandler &handler, const XmlLimits &limits)
{
    XmlReader(space, handler, limits).parse(bytes);
}

} // namespace inin::viewer
