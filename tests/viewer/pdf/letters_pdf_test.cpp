#include "runtime/runtime_error.h"
#include "suite_text/code_page_932.h"
#include "support/sample_size.h"
#include "viewer/document/mark_text.h"
#include "viewer/pdf/letters_pdf.h"
#include "viewer/pdf/pdf_text.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <numeric>
#include <random>
#include <set>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The columns that all forms of the site show unchanged.
constexpr const char *kShown[] = {"保険者名",     "利用者氏名",   "利用者住所", "会社名称",   "会社住所",
                                  "代表者名",     "会社電話番号", "金融機関名", "口座番号",   "口座名義",
                                  "保険者地区名", "保険種別",     "世帯主名",   "世帯主電話", "世帯主住所"};

/// Letters on a form of the site as a PDF, with their marks.
struct Printed {
    TempFolder folder;
    LetterSet set;
    Fonts fonts;
    LetterRenderer renderer;
    std::vector<std::string> pages;
    std::map<std::size_t, std::vector<std::string>> marked; ///< names of marked columns by letter

    Printed(const std::string &form, const std::vector<Row> &rows, std::vector<std::size_t> letters = {})
        : set(openScript(writePrintJob(folder, form, rows))), renderer(set, fonts)
    {
        if (letters.empty()) {
            letters.resize(set.size());
            std::iota(letters.begin(), letters.end(), std::size_t{0});
        }
        renderer.onMarks = [&](std::size_t letter, const std::vector<FieldMark> &marks) {
            for (const FieldMark &mark : marks) marked[letter].push_back(columnNames(renderer.layoutOf(letter), mark));
        };
        REQUIRE(writeLettersPdf(folder / "out.pdf", renderer, letters));
        pages = pagesOf(folder / "out.pdf");
    }
    [[nodiscard]] bool isMarked(std::size_t letter, const std::string &column) const
    {
        const auto found = marked.find(letter);
        return found != marked.end() &&
               std::ranges::any_of(found->second, [&](const std::string &names) { return contains(names, column); });
    }
};

/// A row whose only value is the whole text (UTF-8).
LetterRows oneValue(std::string_view text, std::size_t columns)
{
    LetterRows rows(columns, std::string(text));
    rows.addRow({rows.text()});
    return rows;
}

class RandomRows {
public:
    explicit RandomRows(unsigned seed) : m_dice(seed) {}
    unsigned roll(unsigned sides) { return std::uniform_int_distribution<unsigned>(0, sides - 1)(m_dice); }

    std::string text(unsigned most)
    {
        static const std::vector<std::string> letters = {"髙", "﨑", "支", "西", "長", "高", "崎",
                                                         "一", "、", "（", "）", "ー", "ｱ",  "ｶﾞ",
                                                         "A",  "z",  "0",  "9",  "-",  "㈱", "①"};
        std::string out;
        for (unsigned length = roll(most + 1); length > 0; --length)
            out += letters[roll(static_cast<unsigned>(letters.size()))];
        return out;
    }
    /// A row with its number in each value, so that it differs from all other rows.
    Row row(std::size_t number)
    {
        Row row;
        const std::string own = "行" + std::to_string(number) + "目";
        for (const char *column : kShown)
            row[column] = roll(8) == 0 ? std::string() : own + text(roll(20) == 0 ? 130 : 12);
        row["対象開始日"] = "2024/05/01";
        row["対象終了日"] = "2024/05/31";
        row["最終施術日"] = "2024/05/28";
        row["署名日"] = "2024/05/02";
        return row;
    }
    std::mt19937 &dice() { return m_dice; }

private:
    std::mt19937 m_dice;
};

} // namespace

TEST_CASE("each page has the texts of its row only, for any selection and order of letters")
{
    for (unsigned seed = 1; seed <= 12; seed += kSampleStep) {
        RandomRows random(seed);
        std::vector<Row> rows;
        for (std::size_t n = 1 + random.roll(25); n > 0; --n) rows.push_back(random.row(rows.size()));
        std::vector<std::size_t> letters(rows.size());
        std::iota(letters.begin(), letters.end(), std::size_t{0});
        std::ranges::shuffle(letters, random.dice());
        letters.resize(1 + random.roll(static_cast<unsigned>(letters.size())));
        CAPTURE(seed);

        const Printed printed(kForms[seed % 3], rows, letters);

        REQUIRE(printed.pages.size() == letters.size());
        for (std::size_t page = 0; page < letters.size(); ++page) {
            const std::string text = packed(printed.pages[page]);
            for (const char *column : kShown) {
                const std::string &value = rows[letters[page]].at(column);
                CAPTURE(value);
                const bool isThere = value.empty() || contains(text, packed(value));
                CHECK((isThere || printed.isMarked(letters[page], column)));
            }
            for (std::size_t other = 0; other < rows.size(); ++other)
                if (other != letters[page]) CHECK_FALSE(contains(text, "行" + std::to_string(other) + "目"));
        }
    }
}

TEST_CASE("the values of an ordinary letter can be extracted from the PDF of each form")
{
    for (const char *form : kForms) {
        CAPTURE(std::string(form));
        const Printed printed(form, {ordinaryRow()});
        REQUIRE(printed.pages.size() == 1);
        const std::string page = packed(printed.pages[0]);
        for (const char *value :
             {"高松市", "髙橋花子", "香川県高松市番町１丁目２番３号", "株式会社みどり治療院",
              "香川県高松市中央町４番５号", "山﨑太郎", "087-000-0000", "みどり銀行高松支店", "(普)1234567",
              "カ）ミドリチリョウイン", "令和6年5月28日", "香川", "長尾西", "087-000-0001",
              "香川県さぬき市支度４番５号", "令和6年5月1日から令和6年5月31日まで"}) {
            CAPTURE(std::string(value));
            CHECK(contains(page, value));
        }
        CHECK(printed.marked.empty());
    }
}

TEST_CASE("the longest values are complete on each form")
{
    const Row row = longestRow();
    for (const char *form : kForms) {
        CAPTURE(std::string(form));
        const Printed printed(form, {row});
        const std::string page = packed(printed.pages.at(0));
        for (const char *column : kShown) {
            CAPTURE(std::string(column));
            CHECK(contains(page, packed(row.at(column))));
        }
        CHECK(contains(page, "令和元年5月1日から令和元年12月31日まで"));
    }
}

TEST_CASE("a blank row leaves space to complete the letter by hand")
{
    for (const char *form : kForms) {
        CAPTURE(std::string(form));
        const Printed printed(form, {Row{}});
        CHECK(contains(packed(printed.pages.at(0)), "令和年月日から令和年月日まで"));
        CHECK(printed.marked.empty());
    }
}

TEST_CASE("two characters with the same glyph are extracted correctly")
{
    TempFolder folder;
    LetterSet set = lettersOn(svgPage("<text x='10' y='20' style='font-family:IPAexMincho'>{{a}}</text>"), {});
    // The radical U+2F40 has the same glyph as 支; 𠮷 needs two UTF-16 units.
    set.reports[0].letters = LetterTable({"a"}, {"支\u2F40西\u2EC4長\u2ED1髙﨑𠮷", 1, {0}, oneValue});
    set.reports[0].columns = {"a"};
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    const std::vector<std::size_t> letters = {0};

    REQUIRE(writeLettersPdf(folder / "out.pdf", renderer, letters));

    CHECK(packed(pagesOf(folder / "out.pdf").at(0)) == "支\u2F40西\u2EC4長\u2ED1髙﨑𠮷");
}

TEST_CASE("a PDF embeds a subset of each font that it uses, and its characters can be extracted")
{
    TempFolder folder;
    const LetterSet set = lettersOn(
        svgPage("<text x='10' y='20' style='font-family:IPAexMincho'>甲𠮷∑乙{{保険者名}}𠮷</text>"), {ordinaryRow()});
    Fonts fonts;
    LetterRenderer renderer(set, fonts);

    REQUIRE(writeLettersPdf(folder / "out.pdf", renderer, std::vector<std::size_t>{0}));

    CHECK(packed(pagesOf(folder / "out.pdf").at(0)) == "甲𠮷∑乙高松市𠮷");
    const std::string pdf = folder.bytes("out.pdf");
    CHECK(contains(pdf, "+IPAexMincho/"));
    CHECK(contains(pdf, "+IPAmjMincho/"));
    CHECK(std::system(("qpdf --check '" + folder / "out.pdf" + "' >/dev/null 2>&1").c_str()) == 0);
    CHECK(pdf.size() < 20'000);
}

TEST_CASE("an unreadable row has a page with a warning and its raw text, and no values")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow(), ordinaryRow()});
    std::string csv = folder.bytes("委任状.csv");
    csv.insert(csv.find("\r\n") + 2, "\"only one\"\r\n");
    folder.put("委任状.csv", csv);

    const Outcome outcome = runViewer(folder, "--pdf out.pdf " + script);

    CHECK(outcome.code == 0);
    CHECK(outcome.errors == "1番：列の数が見出し行より少ない行です。\n");
    const auto pages = pagesOf(folder / "out.pdf");
    REQUIRE(pages.size() == 3);
    CHECK(contains(packed(pages[0]), "この行は確実に読み取れないため、委任状にしませんでした。"));
    CHECK(contains(packed(pages[0]), "\"onlyone\""));
    CHECK(contains(packed(pages[1]), "髙橋花子"));
}

TEST_CASE("the paper and the offsets of a script scale and move the page")
{
    TempFolder folder;
    LetterSet set = lettersOn(svgPage("<text x='10' y='20'>{{保険者名}}</text>"), {ordinaryRow()});
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    CHECK(renderer.onPaper(0)({0, 0}).x == doctest::Approx(0));
    set.offsetX = 15;
    set.offsetY = -20;
    CHECK(renderer.onPaper(0)({0, 0}).x == doctest::Approx(1.5 * 72 / 25.4));
    CHECK(renderer.onPaper(0)({0, 0}).y == doctest::Approx(-2 * 72 / 25.4));
    set.offsetX = set.offsetY = 0;
    set.paper = Paper::A5;
    CHECK(renderer.paperSize().x == doctest::Approx(148 * 72 / 25.4));
    CHECK(renderer.onPaper(0)({595.28, 841.89}).x <= renderer.paperSize().x + 0.01);
    CHECK(renderer.onPaper(0)({595.28, 841.89}).y <= renderer.paperSize().y + 0.01);
    const std::vector<std::size_t> letters = {0};
    REQUIRE(writeLettersPdf(folder / "a5.pdf", renderer, letters));
    CHECK(contains(folder.bytes("a5.pdf"), "/MediaBox[0 0 419.53 595.28]"));
    CHECK(packed(pagesOf(folder / "a5.pdf").at(0)) == "高松市");
}

TEST_CASE("a cancelled PDF leaves no file and keeps the older one")
{
    TempFolder folder;
    const LetterSet set = lettersOn(svgPage("<text>{{保険者名}}</text>"), std::vector<Row>(250, ordinaryRow()));
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    std::vector<std::size_t> letters(250);
    folder.put("out.pdf", "old");
    std::vector<std::size_t> reported;

    const bool isWhole = writeLettersPdf(folder / "out.pdf", renderer, letters, [&](std::size_t pages) {
        reported.push_back(pages);
        return pages < 200;
    });

    CHECK_FALSE(isWhole);
    CHECK(reported == std::vector<std::size_t>{100, 200});
    CHECK(folder.bytes("out.pdf") == "old");
    CHECK(folder.names() == std::vector<std::string>{"out.pdf"});
}

TEST_CASE("a PDF of no letters is refused")
{
    TempFolder folder;
    const LetterSet set = lettersOn(svgPage("<text>{{保険者名}}</text>"), {ordinaryRow()});
    Fonts fonts;
    LetterRenderer renderer(set, fonts);
    CHECK_THROWS_AS(writeLettersPdf(folder / "out.pdf", renderer, {}), RuntimeError);
    CHECK(folder.names().empty());
}

TEST_CASE("the same letters give the same bytes")
{
    TempFolder folder;
    for (const char *name : {"a.pdf", "b.pdf"}) {
        const LetterSet set = lettersOn(svgPage("<text>{{保険者名}}</text>"), {ordinaryRow()});
        Fonts fonts;
        LetterRenderer renderer(set, fonts);
        REQUIRE(writeLettersPdf(folder / name, renderer, std::vector<std::size_t>{0}));
    }
    CHECK(folder.bytes("a.pdf") == folder.bytes("b.pdf"));
}

TEST_CASE("a PDF checker finds no error in the file")
{
    TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow(), longestRow(), oddRow()});
    REQUIRE(runViewer(folder, "--pdf out.pdf " + script).code == 0);
    CHECK(std::system(("qpdf --check '" + folder / "out.pdf" + "' >/dev/null 2>&1").c_str()) == 0);
}

TEST_CASE("numbers are written in their shortest form")
{
    struct Case {
        double number;
        const char *text;
    };
    for (const Case &each : {Case{0, "0"},
                             {1, "1"},
                             {-1.5, "-1.5"},
                             {0.05, ".05"},
                             {-0.05, "-.05"},
                             {100, "100"},
                             {595.276, "595.28"},
                             {0.001, "0"},
                             {10.10, "10.1"},
                             {1000.004, "1000"}}) {
        std::string out;
        appendNumber(out, each.number);
        CHECK(out == each.text);
    }
}

TEST_CASE("numbers that are too large are clamped, and NaN is written as 0")
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const int decimals : {2, 5}) {
        for (const double large : {1e13, 1e14, 2e17, 1e300, kInfinity}) {
            CAPTURE(large);
            std::string out;
            appendNumber(out, large, decimals);
            out += ' ';
            appendNumber(out, -large, decimals);
            CHECK(out == "10000000000000 -10000000000000");
        }
        std::string out;
        appendNumber(out, std::numeric_limits<double>::quiet_NaN(), decimals);
        CHECK(out == "0");
    }
    CHECK(hundredthsOf(1e300) == 1'000'000'000'000'000);
}

TEST_CASE("a form with strokes of extreme widths and dashes gives a valid PDF")
{
    TempFolder folder;
    folder.put("f.svg", svgPage("<path d='M1 1L9 9' stroke='red' stroke-width='1e17' stroke-dasharray='1e18 1e300'/>"
                                "<text x='9' y='9'>甲</text>"));
    folder.put("d.csv", "\"a\"\r\n\"1\"\r\n");
    folder.put("s.dat", encodeCp932("FileName,\"f.svg\"\r\nSetDataText,\"d\",\"d.csv\"\r\n"));
    REQUIRE(runViewer(folder, "--pdf o.pdf s.dat").code == 0);
    CHECK(packed(pagesOf(folder / "o.pdf").at(0)) == "甲");
    CHECK(std::system(("qpdf --check '" + folder / "o.pdf" + "' >/dev/null 2>&1").c_str()) == 0);
}
