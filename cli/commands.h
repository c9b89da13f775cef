#pragma once

#include "cli/host.h"
#include "cli/request.h"

namespace tarvix::cli {

// Each does one checked request on an opened machine and gives the exit code.
int Run(Host& host, const platform::Platform& machine, const SearchRequest& request);
int Run(Host& host, const platform::Platform& machine, const ActionRequest& request);
int Run(Host& host, const platform::Platform& machine, const DeleteRequest& request);
int Run(Host& host, const platform::Platform& machine, const ListRequest& request);
int Run(Host& host, const platform::Platform& machine, const PlaylistRequest& request);
int Run(Host& host, const platform::Platform& machine, const NumbersRequest& request);
int Run(Host& host, const platform::Platform& machine, const AutoMoveRequest& request);
int Run(Host& host, const platform::Platform& machine, const AutoPlaylistRequest& request);
int Run(Host& host, const platform::Platform& machine, const ShowPagesRequest& request);
int Run(Host& host, const platform::Platform& machine, const FoldersRequest& request);
int Run(Host& host, const platform::Platform& machine, const LinksRequest& request);
int Run(Host& host, const platform::Platform& machine, const OpenRequest& request);
int Run(Host& host, const platform::Platform& machine, const RunProgramRequest& request);
int Run(Host& host, const platform::Platform& machine, const RunRequest& request);
int Run(Host& host, const platform::Platform& machine, const SampleRequest& request);
int Run(Host& host, const platform::Platform& machine, const PathsRequest& request);
int Run(Host& host, const platform::Platform& machine, const OptionsRequest& request);

} // namespace tarvix::cli
