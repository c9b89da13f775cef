#include "cli/arguments.h"
#include "cli/beside_progress.h"
#include "cli/commands.h"
#include "cli/host.h"
#include "cli/messages.h"

#include <ostream>

namespace tarvix::cli {

int RunTarvixCli(const std::vector<std::string>& arguments, Host& host) {
    const auto request = ReadArguments(arguments);
    if (!request) {
        host.out << request.error().out << std::flush;
        if (!request.error().sentence.empty()) Complain(host, request.error().sentence);
        return request.error().exitCode;
    }
    host.verbose = request->verbose;
    const BesideProgress besideProgress(host);
    const auto machine = host.open(request->machine);
    if (!machine) {
        Complain(host, machine.error());
        return kBadRequest;
    }
    const int code = std::visit([&](const auto& command) { return Run(host, *machine, command); },
                                request->command);
    const int signal = host.interrupted();
    return signal == 0 ? code : kSignalled + signal;
}

} // namespace tarvix::cli
