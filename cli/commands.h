#pragma once

#include "cli/host.h"
#include "cli/request.h"

namespace tarvix::cli {

// Each does one checked request on an opened machine and gives the exit code.
int RunSearch(Host& host, const platform::Platform& machine, const SearchRequest& request);
int RunAction(Host& host, const platform::Platform& machine, const ActionRequest& request);
int RunDelete(Host& host, const platform::Platform& machine, const DeleteRequest& request);
int RunScript(Host& host, const platform::Platform& machine, const RunRequest& request);
int MakeSample(Host& host, const platform::Platform& machine, const SampleRequest& request);
int ShowPaths(Host& host, const platform::Platform& machine, const PathsRequest& request);
int RunOptions(Host& host, const platform::Platform& machine, const OptionsRequest& request);

} // namespace tarvix::cli
