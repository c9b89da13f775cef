// Makes a realistic tree of files, the same for the same arguments: music, documents, photos, deep
// folders and names beyond ASCII, about twelve files a folder, dated 2005 to 2025.

#include <fmt/format.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int kFilesPerFolder = 12;
constexpr std::int64_t kFirstDate = 1104537600; // 2005-01-01
constexpr std::int64_t kLastDate = 1764547199;  // 2025-11-30

constexpr std::array<std::string_view, 24> kWords{
    "Blue",  "River", "Summer",     "Night",  "Old",     "Road",  "Winter",  "Light",
    "Stone", "House", "Invoice",    "Report", "Meeting", "Draft", "Final",   "Notes",
    "Été",   "Größe", "Приложение", "東京",   "Año",     "Café",  "Project", "Backup"};
constexpr std::array<std::string_view, 12> kArtists{
    "The Quiet Hours", "Anna Lindqvist", "Sigur Møller", "Orquesta del Río",
    "Кино и Ко",       "Los Años",       "Paper Boats",  "Johann Groß",
    "Blue Station",    "Mirela",         "夜の音",       "The Long Way"};

class TreeMaker {
  public:
    TreeMaker(fs::path root, std::int64_t files) : root_(std::move(root)), left_(files) {}

    void Run() {
        for (int round = 0; left_ > 0; ++round) {
            MakeMusic(round);
            MakeDocuments(round);
            MakePhotos(round);
            if (round % 40 == 0) MakeDeep(round);
        }
    }
    std::int64_t Folders() const { return folders_; }

  private:
    int Number(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    std::string_view Word() { return kWords[static_cast<std::size_t>(Number(0, 23))]; }

    void Folder(const fs::path& folder) {
        for (fs::path step = folder; step != root_ && !fs::exists(step);
             step = step.parent_path()) {
            ++folders_;
        }
        fs::create_directories(folder);
    }

    void File(const fs::path& folder, const std::string& name) {
        if (left_ <= 0) return;
        --left_;
        const std::string path = folder / name;
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (file < 0) {
            std::perror(path.c_str());
            std::exit(1);
        }
        static const std::string content(3000, 'x');
        const int bytes = Number(0, 50) == 0 ? 0 : Number(1, 3000);
        if (::write(file, content.data(), static_cast<std::size_t>(bytes)) != bytes) std::exit(1);
        const auto date = std::uniform_int_distribution(kFirstDate, kLastDate)(random_);
        const std::array<timespec, 2> times{{{date, 0}, {date, 0}}};
        ::futimens(file, times.data());
        ::close(file);
    }

    void MakeMusic(int round) {
        const auto artist = kArtists[static_cast<std::size_t>(round) % kArtists.size()];
        const fs::path album =
            root_ / "Music" / artist / fmt::format("{} {} ({})", Word(), round, Number(1960, 2024));
        Folder(album);
        for (int track = 1; track <= kFilesPerFolder; ++track) {
            const char* const type = track % 4 == 0 ? "flac" : track % 11 == 0 ? "jpg" : "mp3";
            File(album, fmt::format("{:02} - {} {} {}.{}", track, Word(), Word(), track, type));
        }
    }

    void MakeDocuments(int round) {
        const fs::path folder = root_ / "Documents" / fmt::format("{}", 2005 + round % 20) /
                                fmt::format("{} {}", Word(), round);
        Folder(folder);
        constexpr std::array<const char*, 6> kTypes{"pdf", "docx", "txt", "xlsx", "odt", "html"};
        for (int i = 0; i < kFilesPerFolder; ++i) {
            File(folder, fmt::format("{} {} v{}.{}", Word(), Word(), i,
                                     kTypes[static_cast<std::size_t>(i) % kTypes.size()]));
        }
    }

    void MakePhotos(int round) {
        const fs::path folder = root_ / "Photos" /
                                fmt::format("{}-{:02}-{:02} {} {}", 2005 + round % 20,
                                            round % 12 + 1, round % 28 + 1, Word(), round);
        Folder(folder);
        for (int i = 0; i < kFilesPerFolder; ++i) {
            File(folder,
                 fmt::format("IMG_{:05}.{}", Number(0, 99) * 1000 + i, i % 6 == 5 ? "CR2" : "JPG"));
        }
    }

    void MakeDeep(int round) {
        fs::path folder = root_ / "Archive" / fmt::format("set {}", round);
        for (int level = 0; level < 12; ++level) {
            folder /= fmt::format("level {}", level);
            Folder(folder);
            File(folder, fmt::format("{} at level {}.txt", Word(), level));
        }
    }

    fs::path root_;
    std::int64_t left_;
    std::int64_t folders_ = 0;
    std::mt19937 random_{20260101};
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 3 || std::atoll(argv[2]) <= 0) {
        fmt::print(stderr, "Usage: make_tree FOLDER FILES\nMakes a tree of FILES files in FOLDER, "
                           "which must not exist.\n");
        return 2;
    }
    if (fs::exists(argv[1])) {
        fmt::print(stderr, "{} exists already; name a folder that doesn't.\n", argv[1]);
        return 2;
    }
    fs::create_directories(argv[1]);
    const std::int64_t files = std::atoll(argv[2]);
    TreeMaker maker(argv[1], files);
    maker.Run();
    fmt::print("{} files in {} folders below {}\n", files, maker.Folders(), argv[1]);
}
