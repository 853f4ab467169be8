#include "adapters/script/script_player.h"

#include "adapters/script/script_platform.h"
#include "runtime/runtime_error.h"

#include <new>
#include <ostream>

namespace inin::script {

namespace {

/// Runs the program and converts the way it ends to the exit code.
int runToEnd(const ScriptStreams &streams, Transcript &transcript, const std::function<void()> &program)
try {
    program();
    return kPlayedToTheEnd;
} catch (const ScriptEnded &) {
    return kPlayedToTheEnd;
} catch (const BadScriptCommand &bad) {
    streams.errors << bad.what() << '\n';
    return kBadCommand;
} catch (const UnhandledError &unhandled) {
    transcript.fatal(unhandled.error().number(), unhandled.error().description());
    return kPlayBroke;
} catch (const RuntimeError &error) {
    transcript.fatal(error.number(), error.description());
    return kPlayBroke;
} catch (const std::bad_alloc &) {
    transcript.fatal(error_number::outOfMemory, runtimeDescription(error_number::outOfMemory));
    return kPlayBroke;
} catch (const std::exception &fault) {
    streams.errors << fault.what() << '\n';
    return kPlayBroke;
}

} // namespace

int playScript(const ScriptOptions &options, const ScriptStreams &streams, Database &database,
               const std::function<void(const Platform &)> &run)
{
    Transcript transcript(streams.transcript);
    CommandReader commands(streams.commands);
    ScriptPlatform ports(options, transcript, commands, database);
    const int code = runToEnd(streams, transcript, [&] { run(ports.platform()); });
    if (code != kPlayedToTheEnd || !transcript.isBroken()) return code;
    streams.errors << "the transcript could not be written\n";
    return kPlayBroke;
}

} // namespace inin::script
