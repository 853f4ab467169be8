#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin::viewer {

/// The attributes of one element without a namespace, and those of XML, XLink and Inkscape with their usual prefixes.
class XmlAttributes {
public:
    void add(std::string_view name, std::string_view value) { m_pairs.emplace_back(name, value); }
    [[nodiscard]] std::optional<std::string_view> find(std::string_view name) const;
    [[nodiscard]] std::string_view get(std::string_view name, std::string_view otherwise = {}) const;
    [[nodiscard]] const std::vector<std::pair<std::string, std::string_view>> &all() const { return m_pairs; }

private:
    std::vector<std::pair<std::string, std::string_view>> m_pairs;
};

/// Receives elements and text in document order. Elements of a namespace other than `space` have an empty name, those of
/// Inkscape a name such as "inkscape:page".
class XmlHandler {
public:
    XmlHandler() = default;
    XmlHandler(const XmlHandler &) = delete;
    XmlHandler &operator=(const XmlHandler &) = delete;
    virtual ~XmlHandler() = default;
    virtual void open(std::string_view name, const XmlAttributes &attributes) = 0;
    virtual void close(std::string_view name) = 0;
    virtual void text(std::string_view text) = 0;
};

struct XmlLimits {
    std::size_t elements = 20'000;
    std::size_t depth = 100;
    std::size_t textBytes = 1'000'000;
};

/// Reads a document whose elements are in the namespace `space` or in none, and never opens anything outside it. Throws
/// a RuntimeError with a sentence for entity declarations, exceeded limits and malformed XML.
void readXml(std::string_view bytes, std::string_view space, XmlHandler &handler, const XmlLimits &limits = {});

} // namespace inin::viewer
