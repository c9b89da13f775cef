#pragma once

#include "tests/endtoend/cli_process.h"

namespace tarvix::endtoend {

// The standard trees, each in a folder of its name.
class Trees : public CliProcess {
  protected:
    // Two levels of files with plain names, an empty file, an empty folder.
    void MakeBasic();
    // Links to a file, to a folder, to nothing.
    void MakeLinks();
    // Links that lead back up, to themselves, and to each other.
    void MakeLoops();
    // Names with blanks, wildcards, separators, control characters and other scripts.
    void MakeWeird();
    // Paths of more than 259 characters.
    void MakeDeep();
    // Nothing but folders.
    void MakeEmpty();
    // A FIFO, a hidden file, a read-only file.
    void MakeKinds();
};

} // namespace tarvix::endtoend
