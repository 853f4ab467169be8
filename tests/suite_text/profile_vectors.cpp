#include "suite_text/profile_vectors.h"

#include <fstream>
#include <stdexcept>

#include <nlohmann/json.hpp>

namespace inin {

namespace {

std::optional<std::string> bytesOf(const nlohmann::json &object, const char *name)
{
    if (!object.contains(name) || object.at(name).is_null()) return std::nullopt;
    const std::string hex = object.at(name);
    std::string bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(at, 2), nullptr, 16));
    return bytes;
}

ProfileStep stepOf(const nlohmann::json &object)
{
    ProfileStep step;
    const std::string call = object.at("op");
    if (call == "GetPrivateProfileIntA")
        step.call = ProfileStep::Call::number;
    else if (call == "GetPrivateProfileStringA")
        step.call = ProfileStep::Call::text;
    else if (call == "WritePrivateProfileStringA")
        step.call = ProfileStep::Call::write;
    else
        throw std::runtime_error("unknown call " + call);
    step.section = bytesOf(object, "section");
    step.key = bytesOf(object, "key");
    step.value = bytesOf(object, "value");
    step.returned = object.at("ret");
    step.size = object.value("size", std::size_t{256});
    step.result = bytesOf(object, "result").value_or("");
    step.givesFile = object.contains("fileAfter");
    step.fileAfter = bytesOf(object, "fileAfter");
    return step;
}

} // namespace

std::vector<ProfileCase> recordedProfileCases()
{
    std::ifstream file(ININ_TEST_DATA "/profile.jsonl");
    std::vector<ProfileCase> cases;
    for (std::string line; std::getline(file, line);) {
        const auto object = nlohmann::json::parse(line);
        ProfileCase one{object.at("id"),         object.at("group"),
                        object.at("name"),       object.value("path", std::string()),
                        bytesOf(object, "file"), {}};
        for (const auto &step : object.at("steps")) one.steps.push_back(stepOf(step));
        cases.push_back(std::move(one));
    }
    return cases;
}

bool isAboutTheBytes(const ProfileCase &one)
{
    return one.group != "readonly" && one.group != "path" && one.id != kHeldOpenCase && one.id != kMissingFolderCase;
}

std::string recordedResult(const ProfileStep &step)
{
    if (step.call != ProfileStep::Call::text) return std::to_string(step.returned);
    // A list of names is recorded with its NULs; the call returned its length.
    const bool list = !step.section || !step.key;
    return list ? step.result.substr(0, static_cast<std::size_t>(step.returned)) : step.result;
}

} // namespace inin
