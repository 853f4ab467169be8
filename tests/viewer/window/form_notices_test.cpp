// The window reports what an editor of the form may expect and does not get: by name and once.
#include "runtime/runtime_error.h"
#include "viewer/window/window_world.h"

#include <QTreeView>
#include <doctest/doctest.h>

#include <algorithm>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The rows of the check's first branch.
std::vector<std::string> shownNotices(const WindowWorld &world)
{
    const QAbstractItemModel &model = *world.find<QTreeView>("checkTree")->model();
    const QModelIndex branch = model.index(0, 0);
    CHECK(branch.data().toString().startsWith(QStringLiteral("お知らせ")));
    std::vector<std::string> notices;
    notices.reserve(static_cast<std::size_t>(model.rowCount(branch)));
    for (int row = 0; row < model.rowCount(branch); ++row)
        notices.push_back(model.index(row, 0, branch).data().toString().toStdString());
    return notices;
}

} // namespace

TEST_CASE("a moved text, wide braces, a field in a frame, a replaced font and the paper are each reported once")
{
    const std::string box = "<rect id='枠-氏名' x='50' y='50' width='60' height='10' fill='none'/>";
    const std::string moved = "<text data-box='枠-氏名' x='50' y='90' style='font-size:5px'>{{利用者氏名}}</text>";
    const std::string braces = "<text x='9' y='9'>｛｛会社名称｝｝</text>";
    const std::string frame = "<text x='9' y='9' style='shape-inside:url(#r);font-size:5px'>{{会社住所}}</text>";
    const std::string font = "<text x='9' y='99' style='font-family:架空明朝'>{{代表者名}}</text>";
    const std::string page =
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:i='http://www.inkscape.org/namespaces/inkscape' width='148mm' "
        "height='210mm' viewBox='0 0 148 210'><i:page width='148' height='210'/><i:page x='160' width='148' "
        "height='210'/>";
    WindowWorld world(differentRows(3));
    // Each of them twice, on a form of two pages.
    world.folder.put(kForm, page + box + moved + moved + braces + braces + frame + frame + font + font + "</svg>");

    world.openWindow();

    const std::vector<std::string> notices = shownNotices(world);
    const auto namedBy = [&](const std::string &words) {
        return std::ranges::count_if(notices, [&](const std::string &notice) { return contains(notice, words); });
    };
    CHECK(notices.size() == 5);
    CHECK(namedBy("文字「{{利用者氏名}}」は枠「枠-氏名」の外にありますが、枠の中に印刷します。") == 1);
    CHECK(namedBy("文字「｛｛会社名称｝｝」の全角の波かっこは、差し込みになりません。") == 1);
    CHECK(namedBy("文字「{{会社住所}}」は流し込み枠（shape-inside）の中にありますが") == 1);
    CHECK(namedBy("フォント「架空明朝」がないので") == 1);
    CHECK(namedBy("コマンドファイルの用紙はA4ですが、帳票の大きさ（A5）の用紙に印刷します。") == 1);
}

TEST_CASE("unknown columns are reported with all their names, each once, instead of opening the letters")
{
    WindowWorld world(differentRows(3));
    world.folder.put(kForm, svgPage("<g data-if='担当者'><text x='9' y='9'>{{連絡先}}{{担当者}}</text></g>"
                                    "<text x='9' y='20'>{{連絡先}}</text>"));
    std::string sentence;
    try {
        world.openWindow();
    } catch (const RuntimeError &error) {
        sentence = error.description();
    }
    CHECK(contains(sentence, kForm));
    for (const std::string name : {"「担当者」", "「連絡先」"}) {
        CAPTURE(name);
        CHECK(sentence.find(name) != std::string::npos);
        CHECK(sentence.find(name) == sentence.rfind(name));
    }
}
