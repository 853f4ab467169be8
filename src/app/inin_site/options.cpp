#include "app/inin_site/options.h"

#include "app/inin_site/command_line.h"
#include "app/inin_site/make_line.h"
#include "app/inin_site/why_line.h"
#include "system/file_path.h"

namespace inin::site {

namespace {

class CheckLine : public CommandLine {
public:
    CheckLine(CLI::App &app, HelpLanguage language)
        : CommandLine(app, "check",
                      {"サイトを検査します。問題がなければ終了コード 0、あれば 1、検査できなければ 2 です。",
                       "Checks a site. Exit code 0 without faults, 1 with faults, 2 if it cannot be checked."},
                      language)
    {
        option("DIR", m_folder, kFolder, {"検査するフォルダー。", "Folder to check."})->required();
        flag("--json", m_isJson, kJson);
        option("--bundle", m_bundle, kFile,
               {"問い合わせに添える zip を書きます。氏名、住所、パスワードは入りません。",
                "Writes a zip for support, without names, addresses and passwords."});
    }

    [[nodiscard]] Command read() const
    {
        if (m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
        if (count("--bundle") > 0 && m_bundle.empty())
            return BadCommand{"--bundle には zip の名前を指定してください。"};
        return CheckCommand{pathOf(m_folder), m_isJson ? OutputForm::json : OutputForm::lines, pathOf(m_bundle)};
    }

private:
    std::string m_folder, m_bundle;
    bool m_isJson = false;
};

class FormsLine : public CommandLine {
public:
    FormsLine(CLI::App &app, HelpLanguage language)
        : CommandLine(app, "forms",
                      {"サイトにない帳票を書き込みます。すでにある帳票はそのまま残します。",
                       "Writes the form documents that a site lacks; existing ones are kept."},
                      language)
    {
        option("DIR", m_folder, kFolder, kSuiteFolder)->required();
        flag("--replace", m_isReplacing,
             {"すでにある帳票を、番号を付けた名前で残してから置き換えます。",
              "Replaces existing form documents, and keeps each under a numbered name."});
    }

    [[nodiscard]] Command read() const
    {
        if (m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
        return FormsCommand{pathOf(m_folder), m_isReplacing ? Existing::replace : Existing::keep};
    }

private:
    std::string m_folder;
    bool m_isReplacing = false;
};

class ToolsLine : public CommandLine {
public:
    ToolsLine(CLI::App &app, HelpLanguage language)
        : CommandLine(app, "tools",
                      {"帳票ツールの代わりに form viewer が開くようにします。ほかのメーカーのツールは残します。",
                       "Lets formviewer start under the names of the form tools; tools of another maker are kept."},
                      language)
    {
        option("DIR", m_folder, kFolder, kSuiteFolder)->required();
    }

    [[nodiscard]] Command read() const
    {
        if (m_folder.empty()) return BadCommand{"フォルダーを指定してください。"};
        return ToolsCommand{pathOf(m_folder)};
    }

private:
    std::string m_folder;
};

} // namespace

Command readCommandLine(int argc, const char *const *argv, const std::string &connection, HelpLanguage language)
{
    CLI::App app{
        HelpText{"委任状印刷の見本サイトを作り、サイトを検査します。", "Makes and checks sites of PrintInin."}.in(
            language),
        "inin-site"};
    setHelpLanguage(app, language);
    app.require_subcommand(1);
    const MakeLine make(app, language);
    const CheckLine check(app, language);
    const WhyLine why(app, language);
    const FormsLine forms(app, language);
    const ToolsLine tools(app, language);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success &request) {
        return HelpCommand{requestedText(app, request)};
    } catch (const CLI::ParseError &error) {
        return BadCommand{refusedCommandLine("inin-site", error.what(), language)};
    }
    if (make.isChosen()) return make.read(connection);
    if (check.isChosen()) return check.read();
    if (forms.isChosen()) return forms.read();
    return tools.isChosen() ? tools.read() : why.read();
}

} // namespace inin::site
