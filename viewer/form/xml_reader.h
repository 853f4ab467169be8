#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace inin::viewer {

/// The attributes of one element; only those without a namespace.
class XmlAttributes {
public:
    void add(std::string_view name, std::string_view value) { m_pairs.emplace_back(name, value); }
    [[nodiscard]] std::optional<std::string_view> find(std::string_view name) const;
    [[nodiscard]] std::string_view get(std::string_view name, std::string_view otherwise = {}) const;
    [[nodiscard]] const std::vector<std::pair<std::string_view, std::string_view>> &all() const { return m_pairs; }

private:
    std::vector<std::pair<std::string_view, std::string_view>> m_pairs;
};

/// Told of elements and text in document order. Elements of another namespace than `space` have an empty name; an
/// attribute xml:space is told as "xml:space".
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

/// Reads a document of the namespace `space`, or of none. Entities of the document's own are refused, nothing outside of it is
/// opened; what breaks a limit or is not well formed is a RuntimeError with a sentence.
void readXml(std::string_view bytes, std::string_view space, XmlHandler &handler, const XmlLimits &limits = {});

} // namespace inin::viewer
