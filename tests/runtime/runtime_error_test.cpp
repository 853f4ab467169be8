#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

#include <ostream>
#include <stdexcept>
#include <string_view>

namespace inin {
namespace {

TEST_CASE("every error number has its own description")
{
    struct Row {
        std::int32_t number;
        std::string_view description;
    };
    const Row rows[] = {
        {5, "プロシージャの呼び出し、または引数が不正です。"},
        {6, "オーバーフローしました。"},
        {7, "メモリが不足しています。"},
        {9, "インデックスが有効範囲にありません。"},
        {11, "0 で除算しました。"},
        {13, "型が一致しません。"},
        {52, "ファイル名または番号が不正です。"},
        {53, "ファイルが見つかりません。"},
        {55, "ファイルは既に開かれています。"},
        {57, "デバイス I/O エラーです。"},
        {61, "ディスクの空き容量が不足しています。"},
        {62, "ファイルにこれ以上データがありません。"},
        {67, "ファイルが多すぎます。"},
        {70, "書き込みできません。"},
        {71, "ディスクが準備されていません。"},
        {75, "パス名が無効です。"},
        {76, "パスが見つかりません。"},
        {91, "オブジェクト変数または With ブロック変数が設定されていません。"},
        {94, "Null の使い方が不正です。"},
        {380, "プロパティの値が不正です。"},
        {429, "ActiveX コンポーネントはオブジェクトを作成できません。"},
        {430, "クラスはオートメーションまたは予測されたインターフェイスをサポートしていません。"},
        {438, "オブジェクトは、このプロパティまたはメソッドをサポートしていません。"},
        {440, "オートメーション エラーです。"},
        {445, "オブジェクトはこの動作をサポートしていません。"},
        {449, "引数は省略できません。"},
        {450, "引数の数が一致していません。または不正なプロパティを指定しています。"},
        {462, "リモート サーバーがないか、使用できる状態ではありません。"},
        {481, "ピクチャが不正です。"},
        {3021, "現在のレコードがありません。"},
        {3265, "要求された名前、または序数に対応する項目がコレクションで見つかりません。"},
        {3704, "オブジェクトが閉じている場合は、操作は許可されません。"},
        {3705, "オブジェクトが開いている場合は、操作は許可されません。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.number);
        CHECK(runtimeDescription(row.number) == row.description);
        CHECK(RuntimeError(row.number).description() == row.description);
    }
}

TEST_CASE("an unknown error number has the general description")
{
    CHECK(runtimeDescription(1004) == "アプリケーション定義またはオブジェクト定義のエラーです。");
}

TEST_CASE("a provider's text replaces the runtime's description")
{
    const RuntimeError error(-2147217865, "オブジェクト名 'STAFF' が無効です。");

    CHECK(error.number() == -2147217865);
    CHECK(error.description() == "オブジェクト名 'STAFF' が無効です。");
}

TEST_CASE("a runtime error that leaves an event procedure becomes an unhandled error")
{
    std::int32_t number = 0;
    try {
        atEventEdge([] { throw RuntimeError(11); });
    } catch (const UnhandledError &unhandled) {
        number = unhandled.error().number();
    }
    CHECK(number == 11);
}

TEST_CASE("other exceptions leave an event procedure unchanged")
{
    CHECK_THROWS_AS(atEventEdge([] { throw std::logic_error("ours"); }), std::logic_error);
}

} // namespace
} // namespace inin
