#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tarvix::sweep {

// One system call that reads or changes files, and which of its arguments say what it is about.
struct FileCall {
    long number;
    const char* name;
    int folder = -1; // the descriptor that a relative path counts from
    int path = -1;
    int descriptor = -1;
};

const std::vector<FileCall>& FileCalls();
const FileCall* FileCallOf(long number);

// What the call is about, as an absolute native path; empty when it can't be told.
std::string SubjectOf(const FileCall& call, pid_t thread, const std::uint64_t (&arguments)[6]);

} // namespace tarvix::sweep
