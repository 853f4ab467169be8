#include "adapters/script/command_reader.h"

#include "runtime/utf8.h"

#include <istream>
#include <string_view>

namespace inin::script {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// A command prompt of a Japanese Windows passes code page 932.
constexpr const char *kNotUtf8 = "この行は UTF-8 ではありません。命令のファイルは UTF-8 で保存してください。"
                                 "Windows のコマンドプロンプトでは、先に chcp 65001 を実行してください。";

/// A verb is the key that names the command; the companion is the other key that it allows.
struct Verb {
    const char *key;
    const char *companion; ///< nullptr for none
    CommandKind kind;
    bool companionDue = false;
};
constexpr Verb kVerbs[] = {
    {"click", nullptr, CommandKind::click},      {"set", "to", CommandKind::set, true},
    {"choose", "to", CommandKind::choose, true}, {"key", "code", CommandKind::key, true},
    {"row", "double", CommandKind::row},         {"close", nullptr, CommandKind::close},
    {"state", nullptr, CommandKind::state},
};
constexpr const char *kForce = "force";

/// A reader of one line; it puts the line number into error messages.
class LineReader {
public:
    LineReader(std::size_t line, const Json &object) : m_line(line), m_object(object) {}

    [[nodiscard]] ScriptCommand read() const
    {
        const Verb &verb = findVerb();
        checkKeys(verb);
        ScriptCommand command;
        command.kind = verb.kind;
        command.line = m_line;
        if (m_object.contains(kForce)) command.force = mark(kForce);
        fill(command, verb);
        return command;
    }

private:
    void fill(ScriptCommand &command, const Verb &verb) const
    {
        switch (verb.kind) {
        case CommandKind::click:
            command.control = text(verb.key);
            break;
        case CommandKind::set:
            command.control = text(verb.key);
            command.to = m_object.at(verb.companion);
            break;
        case CommandKind::choose:
        case CommandKind::key:
            command.control = text(verb.key);
            command.number = number<std::int16_t>(verb.companion);
            break;
        case CommandKind::row:
            command.row = number<std::int32_t>(verb.key);
            if (m_object.contains(verb.companion)) command.doubleClick = mark(verb.companion);
            break;
        case CommandKind::close:
        case CommandKind::state:
            if (!mark(verb.key)) fail(quoted(verb.key) + " must be true");
            break;
        }
    }

    [[nodiscard]] const Verb &findVerb() const
    {
        const Verb *found = nullptr;
        for (const Verb &verb : kVerbs) {
            if (!m_object.contains(verb.key)) continue;
            if (found != nullptr) fail("two commands in one line: " + quoted(found->key) + ", " + quoted(verb.key));
            found = &verb;
        }
        if (found == nullptr) fail("no command that is known");
        return *found;
    }

    void checkKeys(const Verb &verb) const
    {
        for (const auto &[key, value] : m_object.items()) {
            const bool companion = verb.companion != nullptr && key == verb.companion;
            if (key != verb.key && key != kForce && !companion) fail("unknown key " + quoted(key));
        }
        if (verb.companionDue && !m_object.contains(verb.companion)) fail(quoted(verb.companion) + " is missing");
    }

    [[nodiscard]] std::string text(const char *key) const
    {
        const Json &value = m_object.at(key);
        if (!value.is_string()) fail(quoted(key) + " must be a text");
        return value.get<std::string>();
    }
    [[nodiscard]] bool mark(const char *key) const
    {
        const Json &value = m_object.at(key);
        if (!value.is_boolean()) fail(quoted(key) + " must be true or false");
        return value.get<bool>();
    }
    template <class T> [[nodiscard]] T number(const char *key) const
    {
        const std::optional<T> value = wholeNumber<T>(m_object.at(key));
        if (!value) fail(quoted(key) + " must be a whole number of " + std::to_string(8 * sizeof(T)) + " bits");
        return *value;
    }

    [[nodiscard]] static std::string quoted(const std::string &key) { return "\"" + key + "\""; }
    [[noreturn]] void fail(const std::string &why) const { throw BadScriptCommand(m_line, why); }

    std::size_t m_line;
    const Json &m_object;
};

bool isSkipped(std::string_view line)
{
    return line.starts_with('#') || line.find_first_not_of(" \t\r") == std::string_view::npos;
}

/// A command is a single object of plain values. Deeper values are refused during parsing: copying and destroying them
/// is recursive, and a line of brackets would overflow the stack.
Json parse(std::size_t line, const std::string &text)
try {
    if (validUtf8(text) != text) throw BadScriptCommand(line, kNotUtf8);
    const auto refuseDeeper = [line](int depth, Json::parse_event_t event, const Json &) {
        const bool opens = event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start;
        if (opens && depth > 0) throw BadScriptCommand(line, "a value must not be an array or an object");
        return true;
    };
    Json object = Json::parse(text, refuseDeeper);
    if (!object.is_object()) throw BadScriptCommand(line, "a command is a JSON object");
    return object;
} catch (const Json::exception &error) {
    throw BadScriptCommand(line, error.what());
}

} // namespace

std::optional<ScriptCommand> CommandReader::next()
{
    std::string text;
    while (std::getline(m_in, text)) {
        ++m_line;
        if (m_line == 1 && text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
        if (isSkipped(text)) continue;
        const Json object = parse(m_line, text);
        return LineReader(m_line, object).read();
    }
    return std::nullopt;
}

} // namespace inin::script
