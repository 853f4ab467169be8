#include "shell/error_box.h"

#include "runtime/text.h"

namespace inin {

void vErrorBox(App &app, std::int32_t nErrNo, const std::string &csErrText, const std::string &csTitle,
               const std::string &csFormName, const std::string &csFuncName)
{
    std::string text;
    // Deliberate: "関数名" is the only prefix without half-width katakana, and the last line ends with a CR too.
    for (const std::string &line :
         {std::string("下記の情報をオルバーネ株式会社までお伝えください。"),
          "ｴﾗｰNo.=" + std::to_string(nErrNo) + "（" + csErrText + "）", "ﾌｫｰﾑ名=" + csFormName, "関数名=" + csFuncName})
        text.append(line).append(kCr);
    app.platform.boxes.show(text, Icon::critical, "エラーが発生しました。" + csTitle);
}

void vErrorBox(App &app, const RuntimeError &error, const std::string &csTitle, const std::string &csFormName,
               const std::string &csFuncName)
{
    vErrorBox(app, error.number(), error.description(), csTitle, csFormName, csFuncName);
}

void headingBox(App &app, const std::string &heading, const std::string &text)
{
    app.platform.boxes.show(headingText(heading, text), Icon::critical);
}

} // namespace inin
