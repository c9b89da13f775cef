#include "cli/commands.h"
#include "cli/first_run_answers.h"
#include "cli/messages.h"
#include "cli/run_program.h"
#include "cli/script_runner.h"
#include "cli/typed_paths.h"
#include "platform/file_system.h"

#include <fmt/core.h>

#include <istream>
#include <iterator>
#include <optional>
#include <ostream>

namespace tarvix::cli {

namespace {

std::string ReadStdin(std::istream& in) {
    return {std::istreambuf_iterator<char>(in), {}};
}

// The script's text; nothing when it can't be read, which was told.
std::optional<std::string> ReadScript(Host& host, const platform::Platform& machine,
                                      const std::string& typed) {
    if (typed == "-") return ReadStdin(host.in);
    const std::string path = TypedPaths(machine, host.currentFolder).ToDrive(typed);
    auto stream = machine.files.OpenAsTextStream(path, platform::OpenMode::kRead);
    if (!stream) {
        Complain(host, fmt::format("The script \"{}\" can't be read: {}", typed,
                                   stream.error().description));
        return std::nullopt;
    }
    std::string text;
    while (const auto line = (*stream)->ReadLine())
        text.append(*line).append("\n");
    return text;
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const RunRequest& request) {
    const auto text = ReadScript(host, machine, request.script);
    if (!text) return kBadRequest;
    auto statements = ParseScript(*text);
    if (!statements) {
        Complain(host,
                 fmt::format("line {}: {}", statements.error().line, statements.error().sentence));
        return kBadRequest;
    }
    session::ScriptedPrompts scripted;
    scripted.SetPaths(machine.paths);
    FirstRunAnswers prompts(scripted, host);
    ScriptRunner runner(std::move(*statements), scripted, host.out);
    runner.SetInterrupted([&host] { return host.interrupted() != 0; });
    runner.QueueLeadingAnswers();
    const platform::KeptListings listings(machine.files); // for each search but the first
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const Watch watch(host, program.Session());
        runner.Run(program);
        RunTimer(host, program.Session());
        return program.Session().state.blnPageNotOpened ? kSomeFailed
               : runner.SomeFailed()                    ? kSomeFailed
                                                        : kDone;
    };
    run.answerWay = "put answer";
    run.line = [&] { return runner.Line(); };
    const int code = RunProgram(host, machine, prompts, run);
    host.out.flush();
    return code;
}

} // namespace tarvix::cli
