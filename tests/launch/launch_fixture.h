#pragma once

#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace tarvix::testing {

// A program with files of several kinds in C:\data, an editor, and VLC.
class LaunchFixture : public ProgramFixture {
  protected:
    LaunchFixture() {
        for (const char* name : {"a.mp3", "b.txt", "c.m3u", "d.wav", "e.jpg", "f.mp4", "g.ogg"})
            Disk().AddFile(std::string("C:\\data\\").append(name), "x");
        Start();
        State().options.strDefSearchFolder.front() = "C:\\home\\ann\\Documents\\";
        State().platformSettings.editor = "ed";
        State().platformSettings.player = "vlc";
        desk.AddProgram("ed");
        desk.AddProgram("vlc");
    }

    // Lists all of C:\data in the order of names and selects the first `count`, or those named.
    void List() {
        LookForAllAttributes();
        Choose(Form().optFilesVsDirs, 2);
        Search("*", "C:\\data");
    }
    void SelectFirst(std::size_t count) {
        for (std::size_t i = 0; i < program.Rows().Count(); ++i)
            program.Rows().At(i).selected = i < count;
    }
    void Select(const std::vector<std::string>& names) {
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            auto& row = program.Rows().At(i);
            row.selected = std::ranges::find(names, row.name) != names.end();
        }
    }
    std::size_t RowOf(std::string_view name) {
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            if (program.Rows().At(i).name == name) return i;
        }
        ADD_FAILURE() << name << " is not listed";
        return 0;
    }
    void DoubleClick(std::string_view name) {
        S().events.Raise(S(), "frmSearch.lstMain_DblClick", {static_cast<int>(RowOf(name))});
    }
    void BeNative() { S().platform.traits.hasNativePaths = true; }
    const std::vector<std::string>& Started() const { return desk.started; }

    platform::MemoryApplications& desk = machine.applications;
    static constexpr const char* kFolder = "C:\\home\\ann\\Documents> ";
};

} // namespace tarvix::testing
