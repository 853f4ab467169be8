// Files that other programs leave in the suite's folders, and command lines from its settings: pictures, the version file,
// the user file, line by line reading, arguments, the system settings.

#include "adapters/posix/command_line.h"
#include "common/picture.h"
#include "common/text_file.h"
#include "fuzz/fuzz_input.h"
#include "shell/online_help.h"
#include "shell/settings.h"
#include "shell/version_form.h"
#include "suite_text/code_page_932.h"
#include "support/fake_platform.h"

#include <string>
#include <vector>

using namespace inin;
using namespace inin::posix;
using inin::fuzz::require;

namespace {

FakeWorld &worldWith(const std::string &path, std::string_view bytes)
{
    static FakeWorld world;
    world.files.log.clear();
    world.files.put(path, std::string(bytes));
    return world;
}

void checkPicture(std::string_view input)
{
    const std::string path = "C:\\picture";
    FakeFiles &files = worldWith(path, input).files;
    checkPictureFile(files, path);
    if (canBePainted(files, path)) require(input.size() > 3, "a picture is more than its signature");
}

void checkVersionFile(std::string_view input)
{
    FakeWorld &world = worldWith("C:\\SUITE\\Sorvin.ver", input);
    world.app.gcsAppPath = "C:\\SUITE";
    frmVer form(world.app);
    std::string version, update;
    const std::string whole = form.csGetVersionFile(version, update);
    require(whole.find(version) != std::string::npos && whole.find(update) != std::string::npos,
            "version and update are parts of the fields");
    // Each field takes a byte at least, and gets a line end.
    require(whole.size() <= 5 * input.size(), "the fields are as long as the file");
    require(input.empty() || !whole.empty(), "a file that is not empty has a field");
}

void checkUserFile(std::string_view input)
{
    FakeWorld &world = worldWith("C:\\SUITE\\EmapUser.ini", input);
    world.app.gcsAppPath = "C:\\SUITE";
    std::string user, password;
    require(iGetEmapUser(world.app, user, password) == 1, "a user file can be read");
    require(user.size() <= 3 * input.size() && password.size() <= 3 * input.size(), "a value is part of the file");
    for (const std::string &text : {user, password})
        require(reversedCharacters(reversedCharacters(text)) == text, "reversing twice gives the text");
}

void checkLines(std::string_view input)
{
    const std::string path = "C:\\lines.txt";
    FakeWorld &world = worldWith(path, input);
    std::string lines, line;
    for (TextInput file(world.platform, path); file.readLine(line);) lines += line;
    std::string bytes(input);
    std::erase_if(bytes, [](char c) { return c == '\r' || c == '\n'; });
    // A line that ends within a double byte is decoded otherwise than the whole.
    if (decodeCp932(bytes).find("\uFFFD") == std::string::npos && lines.find("\uFFFD") == std::string::npos)
        require(lines == decodeCp932(bytes), "the lines make up the file");
}

std::string_view withoutBlanks(std::string_view text)
{
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

/// The value of SYSTEM_TMP by a reader that is simpler: of ASCII bytes, and lines that end with LF only.
std::string naiveFolder(std::string_view file)
{
    while (!file.empty()) {
        const std::string_view line = fuzz::takePart(file);
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && withoutBlanks(line.substr(0, equals)) == "SYSTEM_TMP")
            return std::string(line.substr(equals + 1));
    }
    return {};
}

void checkSystemSettings(std::string_view input)
{
    FakeWorld &world = worldWith("C:\\SUITE\\Massage.ini", input);
    world.app.gcsAppPath = "C:\\SUITE";
    const std::string folder = csTmpDir(world.app, WarnIfMissing::no);
    require(folder.starts_with("C:\\SUITE") && folder.ends_with('\\'), "a folder is in that of the program");
    const bool isPlain = std::ranges::all_of(input, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); });
    if (isPlain) require(folder == "C:\\SUITE" + naiveFolder(input) + "\\", "a value is what the simpler reader finds");
}

std::vector<std::string> splitAtBlanks(std::string_view text)
{
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (c != ' ' && c != '\t')
            words.back() += c;
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty()) words.pop_back();
    return words;
}

void checkCommandLine(std::string_view input)
{
    const auto command = parseCommandLine("\"/bin/sh\" " + std::string(input));
    require(command.has_value(), "the program of a command line is found");
    std::size_t total = 0;
    for (const std::string &argument : command->arguments) total += argument.size();
    require(total <= input.size() + 1, "arguments are parts of the line");
    const bool isPlain = input.find_first_of("\"\\") == std::string_view::npos &&
                         (" " + std::string(input)).find(" /c ") == std::string::npos;
    if (isPlain) require(command->arguments == splitAtBlanks(input), "a line without quotes is split at its blanks");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice(
        {checkPicture, checkVersionFile, checkUserFile, checkLines, checkCommandLine, checkSystemSettings}, data, size);
}
