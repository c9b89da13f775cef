#include "tests/endtoend/trees.h"

#include <sys/stat.h>

namespace tarvix::endtoend {

void Trees::MakeBasic() {
    AddFile("basic/a.mp3", "12345");
    AddFile("basic/b.txt", "0123456789");
    AddFile("basic/sub/c.mp3", std::string(2048, 'c'));
    AddFile("basic/sub/D.MP3", "d");
    AddFile("basic/sub/none.dat", "");
    AddFile("basic/sub/below/e.txt", "e");
    AddFolder("basic/vacant");
}

void Trees::MakeLinks() {
    AddFile("links/real/file.txt", "real");
    AddLink("links/to-file.txt", "real/file.txt");
    AddLink("links/to-folder", "real");
    AddLink("links/dangling.txt", "nowhere");
}

void Trees::MakeLoops() {
    AddFile("loops/in/file.txt");
    AddLink("loops/in/up", "..");
    AddLink("loops/self", "self");
    AddLink("loops/one", "two");
    AddLink("loops/two", "one");
}

void Trees::MakeWeird() {
    for (const char* name :
         {"blank in it.txt", "  leading.txt",     "colon:1.txt", "star*.txt",      "what?.txt",
          "back\\slash.txt", "quote\".txt",       "bar|bar.txt", "less<more>.txt", "tab\there.txt",
          "line\nend.txt",   "bell\a.txt",        "Größe.txt",   "海辺.txt",       "[brackets].txt",
          "hash#1.txt",      "%UserProfile%.txt", "-dash.txt",   "~tilde.txt",     ".txt",
          "dots...txt",      "a.b.c.txt"}) {
        AddFile(fs::path("weird") / name);
    }
    AddFile("weird/folder: odd|one/inside.txt");
}

void Trees::MakeDeep() {
    fs::path folder = "deep";
    for (int level = 1; level <= 12; ++level) {
        folder /= "a folder with a rather long name " + std::to_string(level);
        AddFile(folder / "file.txt", std::to_string(level));
    }
}

void Trees::MakeEmpty() {
    AddFolder("empty/a/b");
    AddFolder("empty/c");
}

void Trees::MakeKinds() {
    AddFile("kinds/plain.txt");
    AddFile("kinds/.hidden.txt");
    chmod(AddFile("kinds/locked.txt").c_str(), 0444);
    mkfifo((Root() / "kinds/pipe.txt").c_str(), 0644);
}

} // namespace tarvix::endtoend
