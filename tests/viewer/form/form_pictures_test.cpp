// Pictures in forms: embedded, beside the form, damaged, huge and hostile.
#include "viewer/form/picture.h"
#include "viewer/support/test_pictures.h"
#include "viewer/support/viewer_world.h"

#include "viewer/form/svg_reader.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMany = 1'000'000;

FormDocument formWith(const std::string &reference, const std::string &more = {})
{
    return readSvg(svgPage("<image x='10' y='20' width='40' height='20' href='" + reference + "' " + more + "/>"));
}

const PictureCommand &pictureOf(const FormDocument &form, std::size_t command = 0)
{
    return std::get<PictureCommand>(form.commands.at(command));
}

std::string refusalOf(const std::string &bytes)
{
    try {
        (void)decodePicture(bytes, kMany);
    } catch (const RuntimeError &error) {
        return error.description();
    }
    return {};
}

/// The notices of a form in `folder` that shows the picture of this name.
std::vector<std::string> noticesFor(const TempFolder &folder, const std::string &reference)
{
    const std::string script = writePrintJob(folder, kForm, {ordinaryRow()});
    folder.put(kForm, svgPage("<image width='40' height='20' href='" + reference + "'/>"));
    const LetterSet set = openScript(script);
    CHECK(set.reports[0].form.commands.size() == (set.notices.empty() ? 1 : 0));
    return set.notices;
}

} // namespace

TEST_CASE("the pixels of PNG and JPEG files are decoded: colours, gray, palettes, transparency, interlaced scans")
{
    const Picture four = decodePicture(pictureBytes("four.png"), kMany);
    CHECK(four.width == 2);
    CHECK(four.height == 2);
    CHECK(four.channels == 3);
    CHECK(four.pixels == std::string("\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF", 12));
    CHECK(four.alpha.empty());
    const Picture gray = decodePicture(pictureBytes("gray.png"), kMany);
    CHECK(gray.channels == 1);
    CHECK(gray.pixels == "\x0A\xC8");
    const Picture palette = decodePicture(pictureBytes("palette.png"), kMany);
    CHECK(palette.pixels.substr(0, 3) == std::string("\xFF\0\0", 3));
    CHECK(palette.alpha == std::string("\xFF\0", 2));
    const Picture photo = decodePicture(pictureBytes("photo.jpg"), kMany);
    CHECK(photo.width == 90);
    CHECK(photo.channels == 3);
    CHECK(photo.jpeg == pictureBytes("photo.jpg"));
    CHECK(static_cast<unsigned char>(photo.pixels[0]) > 200); // orange at the top, blue at the bottom
    CHECK(static_cast<unsigned char>(photo.pixels.back()) > 200);
    CHECK(decodePicture(pictureBytes("gray.jpg"), kMany).channels == 1);
    CHECK(decodePicture(pictureBytes("progressive.jpg"), kMany).height == 60);
}

TEST_CASE("a damaged, cut off, huge or foreign picture is refused with a sentence")
{
    CHECK(refusalOf(pictureBytes("cut.png")) == "途中で切れているか、壊れています。");
    CHECK(refusalOf(pictureBytes("cut.jpg")) == "途中で切れているか、壊れています。");
    CHECK(refusalOf(pictureBytes("photo.jpg").substr(0, 20)) == "途中で切れているか、壊れています。");
    CHECK(refusalOf(pictureBytes("four.png").substr(0, 8)) == "途中で切れているか、壊れています。");
    CHECK(refusalOf(pictureBytes("cmyk.jpg")) == "CMYK の JPEG は使えません。RGB で保存し直してください。");
    CHECK(refusalOf(pictureBytes("four.gif")) == "PNG か JPEG の画像ではありません。");
    CHECK(refusalOf("") == "PNG か JPEG の画像ではありません。");
    // 20,000 × 20,000 pixels in 49 KB
    CHECK(refusalOf(pictureBytes("bomb.png")) ==
          "大きすぎます（20000×20000画素）。画像は、一つの帳票の中で合わせて100万画素まで使えます。");
}

TEST_CASE("no damaged byte of a picture crashes the decoder")
{
    for (const char *name : {"seal.png", "photo.jpg", "progressive.jpg", "animated.png", "palette.png"}) {
        const std::string whole = pictureBytes(name);
        for (std::size_t i = 0; i < whole.size(); ++i) {
            std::string damaged = whole;
            damaged[i] = static_cast<char>(damaged[i] ^ 0x55);
            (void)refusalOf(damaged);
            (void)refusalOf(whole.substr(0, i));
        }
    }
    CHECK(refusalOf(pictureBytes("seal.png")).empty());
}

TEST_CASE("an embedded picture keeps its shape inside its box and is placed as the form describes")
{
    constexpr double kMm = kPointsPerMillimetre;
    const std::string four = embedded(pictureBytes("four.png"));
    // A square picture in a box of 40 × 20.
    const Affine middle = pictureOf(formWith(four)).at;
    CHECK(middle.a == doctest::Approx(20 * kMm));
    CHECK(middle.d == doctest::Approx(20 * kMm));
    CHECK(middle({0, 0}).x == doctest::Approx(20 * kMm));
    CHECK(middle({0, 0}).y == doctest::Approx(20 * kMm));
    CHECK(pictureOf(formWith(four, "preserveAspectRatio='xMinYMid'")).at({0, 0}).x == doctest::Approx(10 * kMm));
    CHECK(pictureOf(formWith(four, "preserveAspectRatio='xMaxYMid meet'")).at({0, 0}).x == doctest::Approx(30 * kMm));
    CHECK(pictureOf(formWith(four, "preserveAspectRatio='none'")).at.a == doctest::Approx(40 * kMm));
    const Affine turned = pictureOf(formWith(four, "transform='rotate(90)'")).at;
    CHECK(turned.b == doctest::Approx(20 * kMm));
    CHECK(turned.a == doctest::Approx(0));
}

TEST_CASE("a picture that is shown twice is decoded once, and its opacity becomes its transparency")
{
    const std::string seal = embedded(pictureBytes("seal.png"));
    const std::string image = "<image width='9' height='9' href='" + seal + "'/>";
    const FormDocument form = readSvg(svgPage(image + "<g opacity='.5'>" + image + "</g>" + image));
    REQUIRE(form.commands.size() == 3);
    CHECK(pictureOf(form, 0).picture == pictureOf(form, 2).picture);
    CHECK(pictureOf(form, 0).picture != pictureOf(form, 1).picture);
    const std::size_t onRing = 60 * 120 + 5;
    CHECK(pictureOf(form, 0).picture->alpha[onRing] == '\xFF');
    CHECK(pictureOf(form, 1).picture->alpha[onRing] == '\x80');
}

TEST_CASE("pictures of more than sixteen million pixels in one form are refused, and the form is shown without them")
{
    const FormDocument form = formWith(embedded(pictureBytes("bomb.png")), "id='爆弾'");
    CHECK(form.commands.empty());
    CHECK(form.notices ==
          std::vector<std::string>{
              "画像「爆弾」は表示しません。大きすぎます（20000×20000画素）。画像は、一つの帳票の中で合わせて"
              "1600万画素まで使えます。"});
}

TEST_CASE("of an animated picture the first image is shown, with a notice")
{
    const FormDocument form = formWith(embedded(pictureBytes("animated.png")));
    REQUIRE(form.commands.size() == 1);
    CHECK(pictureOf(form).picture->pixels == "\x0A\xC8");
    CHECK(form.notices == std::vector<std::string>{"画像「埋め込み」：動く画像は、最初の一枚だけを表示します。"});
}

TEST_CASE("a picture beside the form is shown, also by a Japanese name and in a folder below")
{
    const TempFolder folder;
    folder.put("logo.png", pictureBytes("four.png"));
    folder.put("印.png", pictureBytes("seal.png"));
    fs::create_directory(folder.folder() / "pictures");
    folder.put("pictures/photo.jpg", pictureBytes("photo.jpg"));
    CHECK(noticesFor(folder, "logo.png").empty());
    CHECK(noticesFor(folder, "印.png").empty());
    CHECK(noticesFor(folder, "%E5%8D%B0.png").empty());
    CHECK(noticesFor(folder, "pictures/photo.jpg").empty());
}

TEST_CASE("no picture outside the form's folder is read, whatever its path")
{
    const TempFolder outside, folder;
    outside.put("secret.png", pictureBytes("four.png"));
    const std::string path = outside / "secret.png";
    fs::create_directory(folder.folder() / "sub");
    const auto refused = [&](const std::string &reference, const std::string &reason) {
        CAPTURE(reference);
        const std::vector<std::string> notices = noticesFor(folder, reference);
        REQUIRE(notices.size() == 1);
        CHECK(contains(notices[0], reason));
    };
    const std::string leaves = "帳票のフォルダーの外にあるファイルは読み込みません。";
    const std::string name = fs::path(outside.path()).filename().string();
    refused("../" + name + "/secret.png", leaves);
    refused("sub/../../" + name + "/secret.png", leaves);
    refused("..%2F" + name + "%2Fsecret.png", leaves);
    refused("..\\" + name + "\\secret.png", leaves);
    refused(path, leaves);
    refused("file://" + path, "URL や絶対パスの画像は読み込みません。");
    refused("http://example.invalid/a.png", "URL や絶対パスの画像は読み込みません。");
    refused("C:\\secret.png", "URL や絶対パスの画像は読み込みません。");
    refused("missing.png", "ファイルがありません。");
    refused("sub", "ファイルがありません。");
#ifndef _WIN32
    fs::create_symlink(path, folder.folder() / "link.png");
    fs::create_directory_symlink(outside.folder(), folder.folder() / "linked");
    refused("link.png", leaves);
    refused("linked/secret.png", leaves);
    // A link that stays inside is an ordinary file.
    folder.put("logo.png", pictureBytes("four.png"));
    fs::create_symlink("logo.png", folder.folder() / "inside.png");
    CHECK(noticesFor(folder, "inside.png").empty());
#endif
}

TEST_CASE("a picture file above eight megabytes is not read")
{
    const TempFolder folder;
    folder.put("large.png", pictureBytes("four.png") + std::string(8'400'000, 'x'));
    const std::vector<std::string> notices = noticesFor(folder, "large.png");
    REQUIRE(notices.size() == 1);
    CHECK(contains(notices[0], "画像「large.png」は表示しません。ファイルが大きすぎます（8 MB まで）。"));
}
