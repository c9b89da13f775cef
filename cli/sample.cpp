#include "cli/commands.h"
#include "cli/messages.h"
#include "cli/typed_paths.h"
#include "platform/file_system.h"
#include "platform/names.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <array>
#include <expected>
#include <ostream>

namespace tarvix::cli {

namespace {

struct SampleFolder {
    std::string_view path;  // native, below the sample
    std::size_t size;       // of the smallest file, in bytes
    std::string_view files; // their names, with "|" between
};

constexpr std::array<SampleFolder, 12> kFolders{{
    {"Music", 0, ""},
    {"Music/Jazz", 3100,
     "01 So What (1959).mp3|02 Freddie Freeloader (1959).mp3|03 Blue in Green (1959).mp3|"
     "04 All Blues (1959).mp3|Take Five 1959.flac|My Favorite Things [1961].mp3|Naima.mp3|"
     "cover.jpg|jazz.m3u"},
    {"Music/Folk", 2700,
     "Scarborough Fair (1966).mp3|Scarborough Fair.mp3|Greensleeves.ogg|Danny Boy 1913.mp3|"
     "The Parting Glass.mp3|Shenandoah (1980) live.mp3|Sto lat #1.mp3|"
     "Ständchen - Schubert.flac"},
    {"Music/New", 900, "Track 01.mp3|Track 02.mp3|So What.mp3|untitled|What? Really?: a demo.mp3"},
    {"Documents", 0, ""},
    {"Documents/Letters", 420,
     "Letter to the bank 2026-03-04.txt|Letter to Aunt May.txt|Complaint [draft].txt|"
     "Complaint [final].txt|CV.odt|CV (2).odt|notes|.private notes|Rent contract.pdf"},
    {"Documents/Reports", 1500,
     "Report v1.2.txt|Report v1.10.txt|Report v1.9.txt|Budget 2025.csv|Budget 2026.csv|"
     "Minutes.txt|minutes.bak|Tarvix home page.url"},
    {"Documents/Old", 0, ""},
    {"Photos", 0, ""},
    {"Photos/Holiday 2025", 5200,
     "IMG_0001.jpg|IMG_0002.jpg|IMG_0003.jpg|IMG_0003 (copy).jpg|IMG_0004.JPG|IMG_0005.png|"
     "Sunset at the lake.jpg|海辺.jpg|Panorama 3:1.jpg"},
    {"Photos/Family", 4100,
     "Grandma 1958.tif|Wedding 1984-06-30.jpg|wedding 1984-06-30 small.jpg|"
     "Birthday \"50\".jpg|school*.jpg|thumbs.db"},
    {"Downloads", 640, "setup-1.2.tar.gz|readme.html|readme (1).html|empty.part"},
}};

// Text enough to give every file its own size; the last of a folder of downloads stays empty.
std::string ContentOf(std::string_view name, std::size_t size) {
    if (name.ends_with(".part")) return {};
    std::string content;
    while (content.size() < size)
        content.append(name).append(" - a sample file of Tarvix\r\n");
    return content;
}

using Made = std::expected<int, std::string>; // the count of files

std::string DrivePathOf(const std::string& root, std::string_view nativePath) {
    std::string path = root;
    while (!nativePath.empty()) {
        const std::size_t slash = std::min(nativePath.find('/'), nativePath.size());
        path = text::JoinPath(path, platform::NameToDrive(nativePath.substr(0, slash)));
        nativePath.remove_prefix(std::min(slash + 1, nativePath.size()));
    }
    return path;
}

Made Fill(platform::FileSystem& files, const std::string& folder, const SampleFolder& sample) {
    if (sample.files.empty()) return 0;
    std::size_t size = sample.size;
    const auto names = text::Split(sample.files, '|');
    for (const std::string_view name : names) {
        const std::string path = text::JoinPath(folder, platform::NameToDrive(name));
        auto stream = files.CreateTextFile(path, false);
        if (!stream) return std::unexpected(stream.error().description);
        auto done = (*stream)->Write(ContentOf(name, size));
        if (done) done = (*stream)->Close();
        if (!done) return std::unexpected(done.error().description);
        size += sample.size / 3;
    }
    return static_cast<int>(names.size());
}

Made MakeAll(platform::FileSystem& files, const std::string& root) {
    int count = 0;
    for (const SampleFolder& sample : kFolders) {
        const std::string folder = DrivePathOf(root, sample.path);
        if (const auto made = files.CreateFolder(folder); !made) {
            return std::unexpected(made.error().description);
        }
        const auto filled = Fill(files, folder, sample);
        if (!filled) return filled;
        count += *filled;
    }
    return count;
}

// The folder, made if it is missing and found empty; else why not.
std::expected<void, std::string> Prepare(platform::FileSystem& files, const std::string& root,
                                         const std::string& typed) {
    const auto facts = files.Facts(root);
    if (!facts) {
        const auto made = files.CreateFolder(root);
        if (!made) return std::unexpected(made.error().description);
        return {};
    }
    const auto wrong = [&typed](std::string_view why) {
        return std::unexpected(fmt::format("\"{}\" is {}", typed, why));
    };
    if (!facts->IsFolder()) return wrong("a file: name a folder.");
    auto folder = files.Open(root);
    platform::FolderListing listing;
    const auto listed =
        folder ? (*folder)->List(listing) : platform::Result<void>(std::unexpected(folder.error()));
    if (!listed) return std::unexpected(listed.error().description);
    if (listing.Size() == 0) return {};
    return wrong("not empty: name a folder that is new or empty.");
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const SampleRequest& request) {
    const std::string root = TypedPaths(machine, host.currentFolder).ToDrive(request.folder);
    const auto ready = Prepare(machine.files, root, request.folder);
    const auto made = ready ? MakeAll(machine.files, root) : Made(std::unexpected(ready.error()));
    if (!made) {
        Complain(host, fmt::format("No sample was made: {}", made.error()));
        return kBadRequest;
    }
    host.out << "Made " << *made << " files in " << kFolders.size() << " folders of "
             << request.folder << "." << std::endl;
    return kDone;
}

} // namespace tarvix::cli
