// Letters to PDF compared with an office program, if one is installed: one document with the same texts, one page per
// letter, as plain paragraphs, which is less work than the letter's layout. The office program's start is subtracted,
// ours is not.

#include "bench/bench_process.h"
#include "bench/figures.h"
#include "bench/letter_job.h"
#include "bench/letter_rows.h"
#include "bench/noted_texts.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/letter_renderer.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace inin::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLetters = 10'000;
constexpr std::size_t kPages = 300;
constexpr int kRuns = 3;
constexpr std::size_t kPatientName = 3;

bool isOnPath(const char *program)
{
    const char *const path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');)
        if (::access((fs::path(folder) / program).c_str(), X_OK) == 0) return true;
    return false;
}

std::string escaped(const std::string &text)
{
    std::string out;
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else
            out += c;
    }
    return out;
}

/// Writes the first letters as one text document in a single XML file.
void writeDocument(const std::string &path, viewer::LetterRenderer &press, std::size_t pages)
{
    std::ofstream out(path, std::ios::binary);
    out << R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0" office:version="1.2"
 office:mimetype="application/vnd.oasis.opendocument.text"><office:automatic-styles>
<style:style style:name="L" style:family="paragraph"><style:text-properties style:font-name-asian="IPAex明朝"
 style:font-family-asian="IPAex明朝" fo:font-family="IPAex明朝" fo:font-size="7pt" style:font-size-asian="7pt"/></style:style>
<style:style style:name="F" style:family="paragraph" style:parent-style-name="L"><style:paragraph-properties
 fo:break-before="page"/><style:text-properties fo:font-family="IPAex明朝" style:font-family-asian="IPAex明朝"
 fo:font-size="7pt" style:font-size-asian="7pt"/></style:style>
<style:page-layout style:name="P"><style:page-layout-properties fo:page-width="210mm" fo:page-height="297mm"
 fo:margin="10mm"/></style:page-layout></office:automatic-styles><office:master-styles>
<style:master-page style:name="Standard" style:page-layout-name="P"/></office:master-styles><office:body><office:text>
)";
    NotedTexts noted(press.paperSize().y);
    for (std::size_t n = 0; n < pages; ++n) {
        noted.clear();
        press.layoutOf(n).paintShared(noted);
        press.paintFields(n, noted);
        for (std::size_t i = 0; i < noted.texts.size(); ++i)
            out << (i == 0 && n > 0 ? "<text:p text:style-name=\"F\">" : "<text:p text:style-name=\"L\">")
                << escaped(noted.texts[i]) << "</text:p>\n";
    }
    out << "</office:text></office:body></office:document>\n";
}

double officeSeconds(const LetterJob &job, const std::string &document)
{
    std::vector<Spent> runs;
    for (int i = 0; i < kRuns; ++i)
        runs.push_back(
            runProcess({"soffice", "-env:UserInstallation=file://" + job.file("profile"), "--headless", "--convert-to",
                        "pdf", "--outdir", fs::path(document).parent_path().string(), document},
                       job.file("out")));
    return medianOf(runs).seconds;
}

/// Throws unless the PDF has as many pages as letters and page k has the name of letter k.
void checkPages(const LetterJob &job, const std::string &pdf, std::size_t pages)
{
    static_cast<void>(runProcess({"pdftotext", "-raw", pdf, job.file("pages.txt")}, job.file("out")));
    std::ifstream stream(job.file("pages.txt"), std::ios::binary);
    std::size_t count = 0;
    for (std::string page; std::getline(stream, page, '\f'); ++count) {
        const std::string name = withoutBlanks(letterRow(count)[kPatientName]);
        if (count < pages && withoutBlanks(page).find(name) == std::string::npos)
            throw std::runtime_error(fmt::format("page {} of {} lacks its letter", count + 1, pdf));
    }
    if (count != pages) throw std::runtime_error(fmt::format("{} pages in {}, not {}", count, pdf, pages));
}

int compare(const fs::path &folder)
{
    if (!isOnPath("soffice")) {
        print({.name = "a letter to PDF (no office program is installed)", .ours = {}});
        return 0;
    }
    const LetterJob job(kLetters);
    const viewer::LetterSet set = viewer::openScript(job.script());
    viewer::Fonts fonts;
    viewer::LetterRenderer press(set, fonts);
    writeDocument(job.file("one.fodt"), press, 1);
    writeDocument(job.file("many.fodt"), press, kPages + 1);

    const double start = officeSeconds(job, job.file("one.fodt"));
    const double office = (officeSeconds(job, job.file("many.fodt")) - start) / kPages;
    checkPages(job, job.file("many.pdf"), kPages + 1);
    std::vector<Spent> runs;
    for (int i = 0; i < kRuns; ++i)
        runs.push_back(runProcess({(folder / "formviewer").string(), "--pdf", job.file("ours.pdf"), job.script()},
                                  job.file("out")));
    const double ours = medianOf(runs).seconds / kLetters;
    checkPages(job, job.file("ours.pdf"), kLetters);

    print({.name = fmt::format("a letter of {} to PDF, with the start", kLetters),
           .ours = fmt::format("{:.3f} ms", ours * 1000),
           .peer = fmt::format("{:.2f} ms office program", office * 1000),
           .ratio = fmt::format("{:.4f}", ours / office),
           .aim = "ratio 0.01"});
    return 0;
}

} // namespace

} // namespace inin::bench

int main(int, char **argv)
try {
    return inin::bench::compare(std::filesystem::path(argv[0]).parent_path());
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_office: {}\n", fault.what());
    return 1;
}
