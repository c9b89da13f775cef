#include "tests/launch/desktop_world.h"

#include <gio/gdesktopappinfo.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <thread>
#include <unistd.h>

namespace tarvix::testing {

namespace fs = std::filesystem;

namespace {

// The shell keeps the script itself open under a number of its own, which isn't told.
constexpr const char* kRecorder = R"(#!/bin/sh
run=$(mktemp -d "$TARVIX_RECORDS/part.XXXXXX") || exit 1
(for file in 0 1 2 3 4 5 6 7 8 9 11 12 13 14 15 16 17 18 19 20; do
    readlink "/proc/$$/fd/$file"
done) > "$run/descriptors"
for word in "$@"; do printf '%s\0' "$word"; done > "$run/arguments"
printf '%s' "$PWD" > "$run/folder"
env -0 > "$run/variables"
mv "$run" "$TARVIX_RECORDS/run.${run##*.}"
)";

void Write(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

std::string Read(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> Pieces(const std::string& text, char end) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (std::size_t at = text.find(end); at != text.npos; at = text.find(end, start)) {
        pieces.push_back(text.substr(start, at - start));
        start = at + 1;
    }
    return pieces;
}

Record ReadRecord(const fs::path& run) {
    Record record{.arguments = Pieces(Read(run / "arguments"), '\0'),
                  .folder = Read(run / "folder"),
                  .variables = {},
                  .descriptors = Pieces(Read(run / "descriptors"), '\n')};
    for (const std::string& line : Pieces(Read(run / "variables"), '\0')) {
        const std::size_t equals = line.find('=');
        record.variables[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return record;
}

void SetDefault(const std::string& id, const std::string& type) {
    GDesktopAppInfo* const info = g_desktop_app_info_new(id.c_str());
    g_app_info_set_as_default_for_type(G_APP_INFO(info), type.c_str(), nullptr);
    g_object_unref(info);
}

} // namespace

DesktopWorld& DesktopWorld::Get() {
    static DesktopWorld world;
    return world;
}

DesktopWorld::DesktopWorld() {
    std::string pattern = (fs::temp_directory_path() / "tarvix-desk-XXXXXX").string();
    root_ = mkdtemp(pattern.data());
    fs::create_directories(root_ / "records");
    fs::create_directories(root_ / "system");
    fs::create_directory_symlink("/usr/share/mime", root_ / "system" / "mime");
    Write(Recorder(), kRecorder);
    fs::permissions(Recorder(), fs::perms::owner_all);
    const char* const path = std::getenv("PATH");
    setenv("PATH", (root_ / "bin").string().append(":").append(path).c_str(), 1);
    setenv("TARVIX_RECORDS", (root_ / "records").c_str(), 1);
    setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
    setenv("XDG_DATA_DIRS", (root_ / "system").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root_ / "config").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", (root_ / "system").c_str(), 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    setenv("DESKTOP_STARTUP_ID", "of this process", 1);
    AddEntries();
}

DesktopWorld::~DesktopWorld() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

void DesktopWorld::AddEntry(const std::string& id, const std::string& keys) const {
    Write(root_ / "data" / "applications" / id, "[Desktop Entry]\nType=Application\n" + keys);
}

void DesktopWorld::AddEntries() const {
    AddEntry("one.desktop", "Name=One File\nExec=recorder one %f\nMimeType=text/plain;\n");
    AddEntry("many.desktop", "Name=Many Files\nExec=recorder many %F end\nIcon=many-icon\n"
                             "MimeType=text/plain;image/png;\n");
    AddEntry("address.desktop", "Name=Address\nExec=recorder address %u\n");
    AddEntry("addresses.desktop", "Name=Addresses\nExec=recorder addresses %U\n");
    AddEntry("codes.desktop",
             "Name=Coded Name\nIcon=coded\n"
             "Exec=recorder \"a \\\\\"b\\\\\" c\" %i %c %k 100%% %d%D%n%N%v%m x%fy\n");
    AddEntry("none.desktop", "Name=No Code\nExec=recorder none\n");
    AddEntry("plain.desktop", "Name=No Icon\nExec=recorder plain %i %F\n");
    AddEntry("terminal.desktop", "Name=In Terminal\nExec=recorder inside %f\nTerminal=true\n");
    AddEntry("path.desktop",
             "Name=Elsewhere\nExec=recorder path %f\nPath=" + root_.string() + "\n");
    AddEntry("notify.desktop", "Name=Notify\nExec=recorder notify %f\nStartupNotify=true\n");
    AddEntry("org.tarvix.Activated.desktop",
             "Name=Activated\nExec=recorder activated %U\nDBusActivatable=true\n");
    AddEntry("bin.desktop", "Name=Trash Can\nExec=recorder bin --open %u\n");
    AddEntry("paths.desktop", "Name=Paths\nExec=recorder paths %F\n");
    AddEntry("broken.desktop", "Name=Broken\nExec=recorder \"unclosed %f\n");
    AddEntry("missing.desktop", "Name=Missing\nExec=/no/such/program %f\n");
    AddEntry("wine.desktop", "Name=Wine\nExec=recorder wine %f\n"
                             "MimeType=application/x-ms-dos-executable;application/x-msdownload;"
                             "application/vnd.microsoft.portable-executable;\n");
    AddEntry("files.desktop", "Name=Files\nExec=recorder files %U\nMimeType=inode/directory;\n");
    Write(root_ / "config" / "mimeapps.list",
          "[Default Applications]\ntext/plain=one.desktop\ninode/directory=files.desktop\n"
          "application/x-ms-dos-executable=wine.desktop\n");
    Write(root_ / "data" / "applications" / "mimeinfo.cache",
          "[MIME Cache]\ntext/plain=one.desktop;many.desktop;\nimage/png=many.desktop;\n"
          "inode/directory=files.desktop;\napplication/x-ms-dos-executable=wine.desktop;\n"
          "application/x-msdownload=wine.desktop;\n"
          "application/vnd.microsoft.portable-executable=wine.desktop;\n");
}

// GIO keeps what it has read until it changes it itself.
DesktopWorld::Default::Default(const std::string& id, std::string type) : type_(std::move(type)) {
    GAppInfo* const now = g_app_info_get_default_for_type(type_.c_str(), FALSE);
    if (now != nullptr) {
        before_ = g_app_info_get_id(now);
        g_object_unref(now);
    }
    SetDefault(id, type_);
}

DesktopWorld::Default::~Default() {
    if (before_.empty()) {
        g_app_info_reset_type_associations(type_.c_str());
    } else {
        SetDefault(before_, type_);
    }
}

std::string DesktopWorld::AddFile(const std::string& name, const std::string& text) const {
    const fs::path path = root_ / "files" / name;
    Write(path, text);
    return path.string();
}

std::vector<fs::path> DesktopWorld::Runs() const {
    std::vector<fs::path> runs;
    for (const auto& entry : fs::directory_iterator(root_ / "records")) {
        if (entry.path().filename().string().starts_with("run.")) runs.push_back(entry.path());
    }
    return runs;
}

std::vector<Record> DesktopWorld::Take(std::size_t count) const {
    constexpr int kPatience = 3000; // looks, ten milliseconds apart
    std::vector<fs::path> runs;
    for (int look = 0; look < kPatience && runs.size() < count; ++look) {
        runs = Runs();
        if (runs.size() < count) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::vector<Record> records;
    for (const fs::path& run : runs) {
        records.push_back(ReadRecord(run));
        fs::remove_all(run);
    }
    std::ranges::sort(records, {}, &Record::arguments);
    return records;
}

bool DesktopWorld::IsQuiet() const {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    return fs::is_empty(root_ / "records");
}

} // namespace tarvix::testing
