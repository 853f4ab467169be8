// Ten thousand letters to PDF: the form viewer as a whole process, from script and CSV, compared with a program that
// only writes the same text operators. The texts of the PDF are extracted and checked page by page.

#include "bench/bench_process.h"
#include "bench/figures.h"
#include "bench/letter_job.h"
#include "bench/letter_rows.h"
#include "bench/noted_texts.h"
#include "support/file_bytes.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/letter_renderer.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <map>
#include <stdexcept>

namespace inin::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLetters = 10'000;
constexpr int kRuns = 7;

void writePlainJob(const LetterJob &job)
{
    const viewer::LetterSet set = viewer::openScript(job.script());
    viewer::Fonts fonts;
    viewer::LetterRenderer press(set, fonts);
    NotedTexts notes(press.paperSize().y);
    press.layoutOf(0).paintShared(notes);
    std::string fontLines, shared, letters;
    for (std::size_t i = 0; i < notes.texts.size(); ++i)
        shared += fmt::format("S {} {}\n", notes.places[i], notes.texts[i]);
    for (std::size_t n = 0; n < kLetters; ++n) {
        notes.clear();
        press.paintFields(n, notes);
        for (const std::string &place : notes.places)
            if (n == 0) shared += "V " + place + "\n";
        letters += fmt::format("L {}\n", fmt::join(notes.texts, "\t"));
    }
    for (const viewer::Font *font : notes.fonts) fontLines += "F " + font->path() + "\n";
    writeBytes(job.file("plain.job"), fontLines + shared + letters);
}

/// The number of the letters' texts that are on their own page.
std::pair<std::size_t, std::size_t> textsFound(const LetterJob &job, const char *pdf)
{
    static_cast<void>(runProcess({"pdftotext", "-raw", job.file(pdf), job.file("ours.txt")}, job.file("out")));
    const std::string all = bytesOf(job.file("ours.txt"));
    // Columns that the form shows unchanged: all except the dates and the second bank line.
    constexpr std::size_t kShown[] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 15, 16, 17};
    std::size_t found = 0, expected = 0, begin = 0;
    for (std::size_t n = 0; n < kLetters; ++n) {
        const std::size_t end = std::min(all.find('\f', begin), all.size());
        const std::string page = withoutBlanks(all.substr(begin, end - begin));
        begin = std::min(end + 1, all.size());
        const std::vector<std::string> row = letterRow(n);
        for (const std::size_t column : kShown) {
            ++expected;
            if (page.find(withoutBlanks(row[column])) != page.npos) ++found;
        }
    }
    return {found, expected};
}

/// A kind of PDF, and its aims.
struct PdfKind {
    const char *name, *option, *file;
    double ratio;
    int bytes;
};
constexpr PdfKind kKinds[] = {{"tagged", nullptr, "tagged.pdf", 2.0, 900},
                              {"archive", "--archive", "archive.pdf", 2.0, 900},
                              {"untagged", "--untagged", "untagged.pdf", 1.15, 900}};

std::vector<std::string> commandFor(const LetterJob &job, const PdfKind &kind, const fs::path &folder)
{
    std::vector<std::string> words{(folder / "formviewer").string(), "--pdf", job.file(kind.file)};
    if (kind.option != nullptr) words.emplace_back(kind.option);
    words.push_back(job.script());
    return words;
}

double growthOf(const PdfKind &kind, const fs::path &folder)
{
    std::map<std::size_t, LetterJob> jobs;
    return growthExponent([&](std::size_t letters) {
        const LetterJob &job = jobs.try_emplace(letters, letters).first->second;
        return runProcess(commandFor(job, kind, folder), job.file("out"));
    });
}

/// True when every text is on its own page.
bool compareKind(const LetterJob &job, const PdfKind &kind, const fs::path &folder)
{
    const Race race = raceOf(
        {commandFor(job, kind, folder), job.file("out")},
        {{(folder / "plain_letters").string(), job.file("plain.job"), job.file("plain.pdf")}, job.file("out")}, kRuns);
    const auto [found, expected] = textsFound(job, kind.file);
    const auto bytesALetter = [&](const char *file) {
        return static_cast<double>(fs::file_size(job.file(file))) / kLetters;
    };
    Figure figure = raceFigure(fmt::format("{} letters to PDF, {}", kLetters, kind.name), race, "plain writer",
                               fmt::format("ratio {:.2f}, 60 MB", kind.ratio));
    figure.growth = ratioText(growthOf(kind, folder));
    print(figure);
    print({.name = "its bytes a letter",
           .ours = fmt::format("{:.0f} B", bytesALetter(kind.file)),
           .peer = fmt::format("{:.0f} B plain writer", bytesALetter("plain.pdf")),
           .aim = fmt::format("{} B", kind.bytes)});
    print(
        {.name = "its texts on their own pages", .ours = fmt::format("{}", found), .aim = fmt::format("{}", expected)});
    return found == expected;
}

int compare(const fs::path &folder)
{
    const LetterJob job(kLetters);
    writePlainJob(job);
    bool isWhole = true;
    for (const PdfKind &kind : kKinds) isWhole = compareKind(job, kind, folder) && isWhole;
    return isWhole ? 0 : 1;
}

} // namespace

} // namespace inin::bench

int main(int, char **argv)
try {
    return inin::bench::compare(std::filesystem::path(argv[0]).parent_path());
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_letters: {}\n", fault.what());
    return 1;
}
