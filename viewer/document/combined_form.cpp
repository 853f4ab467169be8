#include "viewer/document/combined_form.h"

#include "viewer/form/xml_reader.h"

namespace inin::viewer {

namespace {

constexpr std::string_view kSpace = "urn:inin:combined-form";
constexpr std::string_view kXmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<combined-form xmlns=\"";

void appendAttribute(std::string &out, std::string_view name, std::string_view value)
{
    out += ' ';
    out += name;
    out += "=\"";
    for (const char c : value) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '"')
            out += "&quot;";
        // XML allows no control characters; no path has one.
        else
            out += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
    out += '"';
}

class CombinedFormReader : public XmlHandler {
public:
    std::vector<ReportOrder> reports;

    void open(std::string_view name, const XmlAttributes &attributes) override
    {
        if (name == "report") reports.push_back({std::string(attributes.get("form")), {}});
        if (name == "data" && !reports.empty())
            reports.back().data.push_back({std::string(attributes.get("name")), std::string(attributes.get("path")),
                                           attributes.get("titles") != "no"});
    }
    void close(std::string_view) override {}
    void text(std::string_view) override {}
};

} // namespace

bool isCombinedForm(std::string_view bytes)
{
    return bytes.starts_with(kXmlHead) && bytes.substr(kXmlHead.size()).starts_with(kSpace);
}

std::string combinedFormText(const std::vector<ReportOrder> &reports)
{
    std::string out(kXmlHead);
    out += kSpace;
    out += "\">\n";
    for (const ReportOrder &report : reports) {
        out += "  <report";
        appendAttribute(out, "form", report.form);
        out += ">\n";
        for (const DataSource &source : report.data) {
            out += "    <data";
            appendAttribute(out, "name", source.name);
            appendAttribute(out, "path", source.path);
            appendAttribute(out, "titles", source.hasTitles ? "yes" : "no");
            out += "/>\n";
        }
        out += "  </report>\n";
    }
    out += "</combined-form>\n";
    return out;
}

std::vector<ReportOrder> readCombinedForm(std::string_view bytes)
{
    CombinedFormReader reader;
    readXml(bytes, kSpace, reader);
    return std::move(reader.reports);
}

} // namespace inin::viewer
