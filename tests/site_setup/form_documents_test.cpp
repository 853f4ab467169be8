#include "demo_site/site_maker.h"
#include "runtime/runtime_error.h"
#include "site_setup/form_documents.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

using namespace inin;
using site::Existing;

namespace {

/// A site with its form documents in an unusual folder.
struct FormSite {
    TempFolder folder;
    FormSite() { folder.put("Massage.ini", "[x]\r\nSYSTEM_TMP=\\TMP\r\nSYSTEM_SYS=\\FORMS\r\n"); }
    [[nodiscard]] std::string install(Existing existing) const
    {
        std::string sentences;
        for (const site::FileReport &report : site::installForms(folder.folder(), existing))
            sentences += site::sentenceOf(report) + "\n";
        return sentences;
    }
};

} // namespace

TEST_CASE("missing form documents are written to the folder that the settings name")
{
    const FormSite site;

    const std::string sentences = site.install(Existing::keep);

    CHECK(sentences.starts_with("「委任状37_01.wfd」を書き込みました。\n"));
    CHECK(site.folder.bytes("FORMS/委任状37_01.wfd") == site::demoForms()[0].text());
    CHECK(site.folder.bytes("FORMS/委任状23.wfd") == site::demoForms()[1].text());
    CHECK(sentences.find("「束の表紙.wfd」を書き込みました。\n") != std::string::npos);
    CHECK(site.folder.bytes("FORMS/束の表紙.wfd") == bytesOf(std::string(ININ_SITE) + "/forms/束の表紙.wfd"));
}

TEST_CASE("an edited form document is kept")
{
    const FormSite site;
    site.folder.put("FORMS/委任状23.wfd", "edited");

    const std::string sentences = site.install(Existing::keep);

    CHECK(sentences.find("「委任状23.wfd」はすでにあるので、そのままにしました。\n") != std::string::npos);
    CHECK(site.folder.bytes("FORMS/委任状23.wfd") == "edited");
}

TEST_CASE("a replaced form document leaves a numbered copy each time")
{
    const FormSite site;
    site.folder.put("FORMS/委任状23.wfd", "first");
    const std::string first = site.install(Existing::replace);
    site.folder.put("FORMS/委任状23.wfd", "second");
    const std::string second = site.install(Existing::replace);

    CHECK(first.find("「委任状23.wfd」を置き換えました。前のファイルは「委任状23.wfd.1」です。\n") !=
          std::string::npos);
    CHECK(second.find("「委任状23.wfd」を置き換えました。前のファイルは「委任状23.wfd.2」です。\n") !=
          std::string::npos);
    CHECK(site.folder.bytes("FORMS/委任状23.wfd.1") == "first");
    CHECK(site.folder.bytes("FORMS/委任状23.wfd.2") == "second");
    CHECK(site.folder.bytes("FORMS/委任状23.wfd") == site::demoForms()[1].text());
}

TEST_CASE("a form document with the same content is not replaced")
{
    const FormSite site;
    (void)site.install(Existing::keep);

    const std::string sentences = site.install(Existing::replace);

    CHECK(sentences.starts_with("「委任状37_01.wfd」は最新です。\n"));
    CHECK_FALSE(site.folder.has("FORMS/委任状37_01.wfd.1"));
}

TEST_CASE("form documents are not written to a folder without settings")
{
    const TempFolder folder;
    CHECK_THROWS_AS((void)site::installForms(folder.folder(), Existing::keep), RuntimeError);
    CHECK(std::filesystem::is_empty(folder.folder()));
}
