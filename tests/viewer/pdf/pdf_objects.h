#pragma once

#include "support/file_bytes.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace inin::viewer::test {

/// The objects of a PDF as another program reads and rewrites them: without compression, in one form.
class PdfObjects {
public:
    explicit PdfObjects(const std::string &pdf)
    {
        const std::string plain = pdf + ".plain";
        REQUIRE(
            std::system(("qpdf --qdf --object-streams=disable --no-original-object-ids '" + pdf + "' '" + plain + "'")
                            .c_str()) == 0);
        const std::string all = bytesOf(plain);
        const std::size_t trailer = all.rfind("\ntrailer ");
        REQUIRE(trailer != all.npos);
        m_trailer = all.substr(trailer);
        std::size_t at = 0;
        while ((at = all.find(" 0 obj\n", at)) != all.npos) {
            const std::size_t begin = all.rfind('\n', at) + 1, body = at + 7;
            at = all.find("\nendobj\n", body);
            REQUIRE(at != all.npos);
            m_objects[std::stoi(all.substr(begin))] = all.substr(body, at - body);
        }
    }

    [[nodiscard]] const std::map<int, std::string> &all() const { return m_objects; }
    [[nodiscard]] const std::string &trailer() const { return m_trailer; }
    [[nodiscard]] const std::string &object(int number) const { return m_objects.at(number); }
    /// The object that an entry of a dictionary refers to; 0 for none.
    [[nodiscard]] static int reference(const std::string &object, const std::string &entry)
    {
        std::smatch found;
        const std::regex pattern("/" + entry + " (\\d+) 0 R");
        return std::regex_search(object, found, pattern) ? std::stoi(found[1]) : 0;
    }
    /// The numbers of an array of references, or of a key's array.
    [[nodiscard]] static std::vector<int> references(const std::string &text)
    {
        std::vector<int> numbers;
        static const std::regex pattern("(\\d+) 0 R");
        for (std::sregex_iterator each(text.begin(), text.end(), pattern), end; each != end; ++each)
            numbers.push_back(std::stoi((*each)[1]));
        return numbers;
    }
    [[nodiscard]] static int integer(const std::string &object, const std::string &entry)
    {
        std::smatch found;
        REQUIRE(std::regex_search(object, found, std::regex("/" + entry + " (\\d+)\n")));
        return std::stoi(found[1]);
    }
    /// The dictionary of a stream, or a whole object without one.
    [[nodiscard]] std::string dictionary(int number) const
    {
        const std::string &object = m_objects.at(number);
        return object.substr(0, object.find("\nstream\n"));
    }
    [[nodiscard]] std::string stream(int number) const
    {
        const std::string &object = m_objects.at(number);
        const std::size_t begin = object.find("\nstream\n"), end = object.rfind("endstream");
        REQUIRE(begin != object.npos);
        return object.substr(begin + 8, end - begin - 8);
    }
    [[nodiscard]] const std::string &catalog() const { return m_objects.at(reference(m_trailer, "Root")); }
    /// The objects with an entry, such as "/Type /Page".
    [[nodiscard]] std::vector<int> having(const std::string &entry) const
    {
        std::vector<int> numbers;
        for (const auto &[number, body] : m_objects)
            if (dictionary(number).find(entry + "\n") != std::string::npos) numbers.push_back(number);
        return numbers;
    }

private:
    std::map<int, std::string> m_objects;
    std::string m_trailer;
};

} // namespace inin::viewer::test
