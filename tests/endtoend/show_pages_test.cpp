#include "tests/endtoend/cli_process.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;

// A desktop whose default browser is a script that notes what it gets, and then stays until it is
// ended or hands its page over at once.
class ShowPages : public CliProcess {
  protected:
    ShowPages() {
        AddFile("config/mimeapps.list",
                "[Default Applications]\nx-scheme-handler/http=fakepages.desktop\n");
        beforeProgram = [root = Root()] {
            setenv("XDG_DATA_HOME", (root / "home").c_str(), 1);
            setenv("XDG_DATA_DIRS", (root / "none").c_str(), 1);
            setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
            setenv("XDG_CONFIG_DIRS", (root / "none").c_str(), 1);
        };
    }
    // `body` runs once the address was noted.
    void MakeBrowser(const std::string& body, const std::string& more = "") {
        const std::string log = LogFile().string();
        const fs::path browser =
            AddFile("fakepages", "#!/bin/sh\ntrap 'echo ended >> " + log + "; exit 0' TERM\n" +
                                     "echo \"$1\" >> " + log + "\n" + body + "\n");
        fs::permissions(browser, fs::perms::owner_all);
        AddFile("home/applications/fakepages.desktop",
                "[Desktop Entry]\nType=Application\nName=Fake Pages\nExec=" + browser.string() +
                    " %u\nMimeType=x-scheme-handler/http;\n" + more);
    }
    Outcome Show(std::string_view lines) {
        const fs::path list = AddFile("pages.txt", lines);
        return Run({"show-pages", list.string(), "--seconds", "1"});
    }
    fs::path LogFile() const { return Root() / "log"; }
    std::string Log() const { return fs::exists(LogFile()) ? ReadAll(LogFile()) : ""; }
};

constexpr const char* kStays = "while :; do sleep 0.02; done";

TEST_F(ShowPages, ABrowserOfItsOwnIsEndedBeforeTheNextPage) {
    MakeBrowser(kStays);
    const Outcome shown = Show("http://a/?q=1#x\nC:\\srv\\b c.htm\n*EOF\n");
    EXPECT_EQ(shown.exitCode, 0) << shown.err;
    EXPECT_THAT(shown.err, HasSubstr("Pages open in Fake Pages; it is ended before"));
    EXPECT_EQ(shown.out, "Showed 2 pages.\n");
    EXPECT_EQ(Log(), "http://a/?q=1#x\nended\n/srv/b c.htm\nended\n");
}

TEST_F(ShowPages, WhatHandsThePageOverIsLeftAlone) {
    MakeBrowser("exit 0");
    EXPECT_EQ(Show("http://a\nhttp://b\n*EOF\n").exitCode, 0);
    EXPECT_EQ(Log(), "http://a\nhttp://b\n");
}

TEST_F(ShowPages, ABrowserThatTheDesktopActivatesIsToldToStay) {
    MakeBrowser(kStays, "DBusActivatable=true\n");
    AddFile("pages.txt", "*EOF\n");
    EXPECT_THAT(Show("*EOF\n").err, HasSubstr("so no page is closed"));
}

TEST_F(ShowPages, WithoutABrowserNothingIsShown) {
    const Outcome shown = Show("http://a\n*EOF\n");
    EXPECT_EQ(shown.exitCode, 1);
    EXPECT_THAT(shown.err, HasSubstr("no default browser"));
}

} // namespace
} // namespace tarvix::endtoend
