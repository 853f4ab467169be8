#include "viewer/support/viewer_jobs.h"

#include "suite_text/code_page_932.h"
#include "support/file_bytes.h"
#include "viewer/letters/csv_reader.h"

namespace inin::viewer::test {

namespace fs = std::filesystem;

bool contains(const std::string &text, const std::string &part)
{
    return text.find(part) != std::string::npos;
}

Row ordinaryRow()
{
    return {{"対象開始日", "2024/05/01"},
            {"対象終了日", "2024/05/31"},
            {"保険者名", "高松市"},
            {"利用者氏名", "髙橋　花子"},
            {"利用者住所", "香川県高松市番町１丁目２番３号"},
            {"会社名称", "株式会社みどり治療院"},
            {"会社住所", "香川県高松市中央町４番５号"},
            {"代表者名", "山﨑　太郎"},
            {"会社電話番号", "087-000-0000"},
            {"金融機関名", "みどり銀行  高松支店"},
            {"口座番号", "(普) 1234567"},
            {"口座名義", "カ）ミドリチリョウイン"},
            {"最終施術日", "2024/05/28"},
            {"保険者地区名", "香川"},
            {"保険種別", "1"},
            {"世帯主名", "長尾　西"},
            {"世帯主電話", "087-000-0001"},
            {"世帯主住所", "香川県さぬき市支度４番５号"},
            {"金融機関名２", "みどり銀行  高松支店"},
            {"署名日", "2024/05/01"}};
}

namespace {

std::string repeated(const std::string &text, std::size_t times)
{
    std::string out;
    for (std::size_t i = 0; i < times; ++i) out += text;
    return out;
}

} // namespace

Row longestRow()
{
    Row row = ordinaryRow();
    const std::string hundred = repeated("香川県高松市西長支﨑", 10);
    for (const char *column : {"利用者住所", "会社住所", "世帯主住所"}) row[column] = hundred;
    for (const char *column : {"利用者氏名", "世帯主名", "代表者名"}) row[column] = repeated("髙﨑勘解由", 5);
    row["会社名称"] = "株式会社" + repeated("みどりの手治療院", 3);
    row["保険者名"] = "香川県後期高齢者医療広域連合高松西部事務所担当";
    row["口座名義"] = "ｶ)ﾐﾄﾞﾘﾉﾃﾁﾘｮｳｲﾝ ﾀﾞｲﾋｮｳ ﾄﾘｼﾏﾘﾔｸ ﾔﾏｻﾞｷ ﾀﾛｳ";
    row["金融機関名"] = "香川県信用農業協同組合連合会みどり銀行  高松中央通り西出張所";
    row["対象開始日"] = "2019/05/01";
    row["対象終了日"] = "2019/12/31";
    row["最終施術日"] = "19/12/31";
    return row;
}

Row oddRow()
{
    Row row = ordinaryRow();
    row["利用者氏名"] = "{{会社名称}}";
    row["会社名称"] = "\"みどり\" の, 手";
    row["最終施術日"] = "二十日";
    row["世帯主名"] = "ﾀｶﾊｼ ｲﾁﾛｳ";
    row["代表者名"] = "?田";
    row["会社電話番号"] = "";
    row["金融機関名"] = "  ";
    row["口座番号"] = " ";
    row["世帯主住所"] = "ABC Mansion 102 号室 1234567890-1234567890-1234567890 西館";
    return row;
}

std::string csvOf(const std::vector<Row> &rows)
{
    std::string text;
    const auto addLine = [&](const auto &valueOf) {
        std::string line;
        for (const std::string &title : programTitles()) line += (line.empty() ? "\"" : ",\"") + valueOf(title) + "\"";
        text += line + "\r\n";
    };
    addLine([](const std::string &title) { return title; });
    for (const Row &row : rows)
        addLine([&](const std::string &title) { return row.contains(title) ? row.at(title) : std::string(); });
    return encodeCp932(text);
}

std::string writePrintJob(const fs::path &folder, const std::string &form, const std::vector<Row> &rows)
{
    const std::string path = textOf(folder);
    writeBytes(path + "/委任状.csv", csvOf(rows));
    std::error_code error;
    fs::copy_file(pathOf(ININ_SITE) / "forms" / pathOf(form), folder / pathOf(form), error);
    writeBytes(path + "/WfdCom.dat",
               encodeCp932("FileName,\"" + path + "\\" + form + "\"\r\nTitle,\"委任状\"\r\nSetDataText,\"委任状\",\"" +
                           path + "\\委任状.csv\"\r\nPrintPaper, A4\r\nPrintOutFromDialog\r\n"));
    return textOf(folder / "WfdCom.dat");
}

} // namespace inin::viewer::test
