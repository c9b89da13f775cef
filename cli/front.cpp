#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/host.h"
#include "cli/messages.h"

#include <ostream>

namespace tarvix::cli {

namespace {

struct Dispatch {
    Host& host;
    const platform::Platform& machine;

    int operator()(const SearchRequest& request) const { return RunSearch(host, machine, request); }
    int operator()(const ActionRequest& request) const { return RunAction(host, machine, request); }
    int operator()(const DeleteRequest& request) const { return RunDelete(host, machine, request); }
    int operator()(const RunRequest& request) const { return RunScript(host, machine, request); }
    int operator()(const SampleRequest& request) const {
        return MakeSample(host, machine, request);
    }
    int operator()(const PathsRequest& request) const { return ShowPaths(host, machine, request); }
    int operator()(const OptionsRequest& request) const {
        return RunOptions(host, machine, request);
    }
};

} // namespace

int RunTarvixCli(const std::vector<std::string>& arguments, Host& host) {
    const auto request = ReadArguments(arguments);
    if (!request) {
        host.out << request.error().out << std::flush;
        if (!request.error().sentence.empty()) Complain(host, request.error().sentence);
        return request.error().exitCode;
    }
    const auto machine = host.open(request->machine);
    if (!machine) {
        Complain(host, machine.error());
        return kBadRequest;
    }
    return std::visit(Dispatch{host, *machine}, request->command);
}

} // namespace tarvix::cli
