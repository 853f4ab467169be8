#include "viewer/pdf/pdf_metadata.h"

#include "runtime/utf8.h"

#include <fmt/format.h>

namespace inin::viewer {

namespace {

std::string xmlText(std::string_view text)
{
    std::string out;
    for (const char letter : text) {
        // Control characters are not allowed in XML.
        if (static_cast<unsigned char>(letter) < 0x20)
            out += ' ';
        else if (letter == '&')
            out += "&amp;";
        else if (letter == '<')
            out += "&lt;";
        else if (letter == '>')
            out += "&gt;";
        else
            out += letter;
    }
    return out;
}

/// The standard for archives wants properties that it does not know to be described.
constexpr std::string_view kDescribedProperties =
    R"(<rdf:Description rdf:about="" xmlns:pdfaExtension="http://www.aiim.org/pdfa/ns/extension/"
 xmlns:pdfaSchema="http://www.aiim.org/pdfa/ns/schema#" xmlns:pdfaProperty="http://www.aiim.org/pdfa/ns/property#">
<pdfaExtension:schemas><rdf:Bag><rdf:li rdf:parseType="Resource">
<pdfaSchema:schema>PDF/UA identification schema</pdfaSchema:schema>
<pdfaSchema:namespaceURI>http://www.aiim.org/pdfua/ns/id/</pdfaSchema:namespaceURI>
<pdfaSchema:prefix>pdfuaid</pdfaSchema:prefix>
<pdfaSchema:property><rdf:Seq><rdf:li rdf:parseType="Resource">
<pdfaProperty:name>part</pdfaProperty:name>
<pdfaProperty:valueType>Integer</pdfaProperty:valueType>
<pdfaProperty:category>internal</pdfaProperty:category>
<pdfaProperty:description>Part of the standard that the file follows</pdfaProperty:description>
</rdf:li></rdf:Seq></pdfaSchema:property>
</rdf:li></rdf:Bag></pdfaExtension:schemas>
</rdf:Description>
<rdf:Description rdf:about="" xmlns:pdfaid="http://www.aiim.org/pdfa/ns/id/">
<pdfaid:part>2</pdfaid:part>
<pdfaid:conformance>U</pdfaid:conformance>
</rdf:Description>
)";

} // namespace

std::string xmpMetadata(std::string_view title, ArchiveClaim claim)
{
    return fmt::format("<?xpacket begin=\"\uFEFF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
                       R"(<x:xmpmeta xmlns:x="adobe:ns:meta/">
<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
<rdf:Description rdf:about="" xmlns:dc="http://purl.org/dc/elements/1.1/">
<dc:format>application/pdf</dc:format>
<dc:title><rdf:Alt><rdf:li xml:lang="x-default">{}</rdf:li></rdf:Alt></dc:title>
<dc:language><rdf:Bag><rdf:li>ja</rdf:li></rdf:Bag></dc:language>
</rdf:Description>
<rdf:Description rdf:about="" xmlns:pdf="http://ns.adobe.com/pdf/1.3/">
<pdf:Producer>{}</pdf:Producer>
</rdf:Description>
{}<rdf:Description rdf:about="" xmlns:pdfuaid="http://www.aiim.org/pdfua/ns/id/">
<pdfuaid:part>1</pdfuaid:part>
</rdf:Description>
</rdf:RDF>
</x:xmpmeta>
<?xpacket end="r"?>)",
                       xmlText(title), kPdfProducer,
                       claim == ArchiveClaim::pdfA ? kDescribedProperties : std::string_view());
}

} // namespace inin::viewer
