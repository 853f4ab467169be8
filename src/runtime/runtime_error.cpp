#include "runtime/runtime_error.h"

#include <string_view>
#include <utility>

namespace inin {

namespace {

struct Description {
    std::int32_t number;
    std::string_view text;
};

constexpr Description kDescriptions[] = {
    {error_number::invalidCall, "プロシージャの呼び出し、または引数が不正です。"},
    {error_number::overflow, "オーバーフローしました。"},
    {error_number::outOfMemory, "メモリが不足しています。"},
    {error_number::subscript, "インデックスが有効範囲にありません。"},
    {error_number::divisionByZero, "0 で除算しました。"},
    {error_number::typeMismatch, "型が一致しません。"},
    {error_number::badFileName, "ファイル名または番号が不正です。"},
    {error_number::fileNotFound, "ファイルが見つかりません。"},
    {error_number::fileAlreadyOpen, "ファイルは既に開かれています。"},
    {error_number::deviceIo, "デバイス I/O エラーです。"},
    {error_number::diskFull, "ディスクの空き容量が不足しています。"},
    {error_number::endOfFile, "ファイルにこれ以上データがありません。"},
    {error_number::tooManyFiles, "ファイルが多すぎます。"},
    {error_number::permissionDenied, "書き込みできません。"},
    {error_number::diskNotReady, "ディスクが準備されていません。"},
    {error_number::pathAccess, "パス名が無効です。"},
    {error_number::pathNotFound, "パスが見つかりません。"},
    {error_number::objectNotSet, "オブジェクト変数または With ブロック変数が設定されていません。"},
    {error_number::invalidUseOfNull, "Null の使い方が不正です。"},
    {error_number::invalidPropertyValue, "プロパティの値が不正です。"},
    {error_number::automationCannotCreate, "ActiveX コンポーネントはオブジェクトを作成できません。"},
    {error_number::noAutomation, "クラスはオートメーションまたは予測されたインターフェイスをサポートしていません。"},
    {error_number::noSuchMember, "オブジェクトは、このプロパティまたはメソッドをサポートしていません。"},
    {error_number::automationError, "オートメーション エラーです。"},
    {error_number::unsupportedAction, "オブジェクトはこの動作をサポートしていません。"},
    {error_number::argumentNotOptional, "引数は省略できません。"},
    {error_number::wrongArgumentCount, "引数の数が一致していません。または不正なプロパティを指定しています。"},
    {error_number::serverUnavailable, "リモート サーバーがないか、使用できる状態ではありません。"},
    {error_number::invalidPicture, "ピクチャが不正です。"},
    {error_number::noCurrentRecord, "現在のレコードがありません。"},
    {error_number::noSuchField, "要求された名前、または序数に対応する項目がコレクションで見つかりません。"},
    {error_number::closedObject, "オブジェクトが閉じている場合は、操作は許可されません。"},
    {error_number::openObject, "オブジェクトが開いている場合は、操作は許可されません。"},
};
constexpr std::string_view kUnknown = "アプリケーション定義またはオブジェクト定義のエラーです。";

} // namespace

std::string runtimeDescription(std::int32_t number)
{
    for (const Description &description : kDescriptions)
        if (description.number == number) return std::string(description.text);
    return std::string(kUnknown);
}

RuntimeError::RuntimeError(std::int32_t number) : RuntimeError(number, runtimeDescription(number)) {}

RuntimeError::RuntimeError(std::int32_t number, std::string description)
    : m_number(number), m_description(std::move(description))
{
}

} // namespace inin
