#pragma once

#include "platform/folders.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"

#include <map>
#include <string>
#include <vector>

namespace inin {

/// Folders in memory: "C:\", "C:\SUITE", ... Opening a folder listed in `errors` fails with that error number.
class FakeFolders : public Folders {
public:
    std::vector<std::string> letters{"c:", "d:"};
    std::vector<std::string> paths{"C:\\", "C:\\SUITE", "C:\\SUITE\\TMP", "C:\\SUITE\\DATA", "D:\\", "D:\\写真"};
    std::map<std::string, std::int32_t> errors;
    std::vector<std::string> opened;

    std::vector<std::string> drives() override { return letters; }
    FolderContents open(const std::string &path) override
    {
        opened.push_back(path);
        if (const auto fault = errors.find(path); fault != errors.end()) throw RuntimeError(fault->second);
        const std::string wanted = path.size() == 2 ? path + "\\" : path;
        for (const std::string &known : paths)
            if (equalsIgnoringAsciiCase(known, wanted)) return contentsOf(known);
        throw RuntimeError(error_number::pathNotFound);
    }

private:
    [[nodiscard]] FolderContents contentsOf(const std::string &folder) const
    {
        FolderContents contents{asciiLower(folder.substr(0, 2)), {}, {}};
        const std::string stem = folder.ends_with('\\') ? folder : folder + "\\";
        for (const std::string &known : paths) {
            const std::string name = known.substr(known.size() == 3 ? 0 : known.rfind('\\') + 1);
            if (stem.starts_with(known.size() == 3 ? known : known + "\\"))
                contents.above.push_back({name, known});
            else if (known.starts_with(stem) && known.find('\\', stem.size()) == std::string::npos)
                contents.inside.push_back({name, known});
        }
        return contents;
    }
};

} // namespace inin
