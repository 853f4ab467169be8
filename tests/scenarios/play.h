#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace inin {

/// A command of a play and the events expected until the next one. The first step has no command: the start.
struct PlayStep {
    /// "> end of commands": the input ends here, and the program closes the forms that are still open. It is the last
    /// step; in a play without it the program must close its forms itself.
    static constexpr const char *kEndOfCommands = "end of commands";

    struct Expected {
        enum class How {
            exactly,    ///< "< {...}": this event and nothing else
            containing, ///< "<~ {...}": an event that has at least these keys with these values
            anything    ///< "< ...": any events, or none
        };
        How how = How::exactly;
        std::string event;
        std::size_t line = 0;
    };
    std::string command;
    std::vector<Expected> expected;
    [[nodiscard]] bool isEndOfCommands() const { return command == kEndOfCommands; }
};

/// A text file of the play: readable UTF-8 here, code page 932 with CR LF on the disk.
struct PlayFile {
    std::string path; ///< in the site's folder, with backslashes
    std::string text; ///< lines ended by "\n"
    std::size_t line = 0;
};

/// One scenario: a site, the changes to it, commands, expected events, and the files expected at the end.
struct Play {
    std::string file;
    std::string claim; ///< its first comment line, the name of the test
    std::string site;
    std::string now;
    bool startProcesses = false;
    std::vector<std::string> removed; ///< "remove: PATH", files or folders of the site
    std::vector<std::string> folders; ///< "folder: PATH"
    std::vector<PlayFile> put;        ///< "put PATH:" and indented lines
    std::vector<std::string> sql;     ///< "sql: STATEMENT", run on the site's database
    std::vector<PlayStep> steps;
    std::vector<PlayFile> expectedFiles;  ///< "file PATH:" and indented lines
    std::vector<std::string> absentFiles; ///< "absent: PATH"
    int exitCode = 0;
};

/// All plays of this folder, by name.
[[nodiscard]] std::vector<std::string> playFiles();
/// Reads a *.play file. Throws std::runtime_error with file and line if it is invalid.
[[nodiscard]] Play readPlay(const std::string &path);

} // namespace inin
