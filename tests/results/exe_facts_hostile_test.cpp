#include "results/exe_facts.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

namespace tarvix::results {
namespace {

constexpr const char* kFiles[] = {
    "bad_pe_cut.exe",        "dll64_ver.dll",       "exe32_console_nover.exe",
    "exe64_console_ver.exe", "exe64_gui_nover.exe", "exe64_gui_ver_zero.exe",
    "mz_dos_plain.exe",      "ne_win16_310.exe",    "pe_ver_bad_signature.exe",
};

std::string Bytes(const std::string& name) {
    std::ifstream in(TARVIX_TEST_DATA "/pe/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Reads a buffer and holds the reader to its limit.
ExeFacts Read(std::string_view bytes) {
    std::size_t asked = 0;
    const ExeFacts facts = ReadExeFacts([&](std::uint64_t offset, std::size_t count) {
        asked += count;
        return offset < bytes.size() ? std::string(bytes.substr(offset, count)) : std::string();
    });
    EXPECT_LE(asked, kMostExeBytes);
    return facts;
}

void Put(std::string& bytes, std::size_t at, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i)
        bytes[at + i] = static_cast<char>(value >> 8 * i);
}

std::uint32_t Get(const std::string& bytes, std::size_t at, int size) {
    std::uint32_t value = 0;
    for (int i = size; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

// A program with a version record, and the places in it that the tests spoil.
struct Program {
    std::string bytes = Bytes("exe64_console_ver.exe");
    std::size_t header = Get(bytes, 0x3C, 4);
    std::size_t optional = header + 24;
    std::size_t sections = optional + Get(bytes, header + 20, 2);
    std::size_t tree = Tree();
    std::size_t fixedRecord = bytes.find("\xBD\x04\xEF\xFE");

    std::size_t Tree() const {
        const std::size_t count = Get(bytes, header + 6, 2);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t at = sections + i * 40;
            if (bytes.compare(at, 6, ".rsrc", 6) == 0) return Get(bytes, at + 20, 4);
        }
        return std::string::npos;
    }
    // Where the first entry of a directory points to, as a place in the tree.
    std::size_t FirstChild(std::size_t directory) const {
        return Get(bytes, tree + directory + 20, 4) & 0x7FFFFFFF;
    }
    bool HasVersion() const { return Read(bytes).version.has_value(); }
};

TEST(ExeFactsHostile, TheProgramToSpoilIsWhole) {
    const Program program;
    ASSERT_NE(program.tree, std::string::npos);
    ASSERT_NE(program.fixedRecord, std::string::npos);
    ASSERT_TRUE(program.HasVersion());
}

TEST(ExeFactsHostile, CutAtEveryByte) {
    for (const char* name : kFiles) {
        SCOPED_TRACE(name);
        const std::string whole = Bytes(name);
        const ExeFacts truth = Read(whole);
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const ExeFacts facts = Read(std::string_view(whole).substr(0, size));
            const bool known =
                facts.exeType == 0 || facts.exeType == kDosType || facts.exeType == truth.exeType;
            ASSERT_TRUE(known) << size;
            if (!facts.version) continue;
            ASSERT_TRUE(truth.version) << size;
            ASSERT_EQ(facts.version->major, truth.version->major) << size;
            ASSERT_EQ(facts.version->minor, truth.version->minor) << size;
            ASSERT_EQ(facts.version->os, truth.version->os) << size;
        }
    }
}

TEST(ExeFactsHostile, CutInsideTheFixedRecordHasNoVersion) {
    const Program program;
    const std::string_view bytes = program.bytes;
    EXPECT_FALSE(Read(bytes.substr(0, program.fixedRecord + 51)).version);
    EXPECT_TRUE(Read(bytes.substr(0, program.fixedRecord + 52)).version);
}

TEST(ExeFactsHostile, CutHeaders) {
    const std::string dos = Bytes("mz_dos_plain.exe");
    EXPECT_EQ(Read(dos.substr(0, 63)).exeType, 0u);
    EXPECT_EQ(Read(dos.substr(0, 64)).exeType, kDosType);
    const Program program;
    EXPECT_EQ(Read(program.bytes.substr(0, program.header)).exeType, kDosType);
    EXPECT_EQ(Read(program.bytes.substr(0, program.header + 23)).exeType, kDosType);
    EXPECT_EQ(Read(program.bytes.substr(0, program.optional + 69)).exeType, 0u);
    EXPECT_EQ(Read(program.bytes.substr(0, program.optional + 70)).exeType, kWin32Type);
}

TEST(ExeFactsHostile, FlippedBytes) {
    std::mt19937 random(20260115);
    for (const char* name : kFiles) {
        const std::string whole = Bytes(name);
        for (int round = 0; round < 3000; ++round) {
            std::string bytes = whole;
            // Half of the rounds spoil the headers only.
            const std::size_t end =
                round % 2 == 0 ? std::min<std::size_t>(bytes.size(), 1024) : bytes.size();
            for (int flips = 1 + static_cast<int>(random() % 16); flips > 0; --flips) {
                bytes[random() % end] = static_cast<char>(random());
            }
            Read(bytes);
        }
    }
}

TEST(ExeFactsHostile, FlippedBytesOfTheResourceTree) {
    std::mt19937 random(7);
    const Program program;
    for (int round = 0; round < 20'000; ++round) {
        std::string bytes = program.bytes;
        for (int flips = 1 + static_cast<int>(random() % 8); flips > 0; --flips) {
            bytes[program.tree + random() % 256] = static_cast<char>(random());
        }
        Read(bytes);
    }
}

TEST(ExeFactsHostile, TreeThatPointsToItself) {
    Program typeLevel;
    Put(typeLevel.bytes, typeLevel.tree + 20, 0x80000000, 4);
    EXPECT_FALSE(typeLevel.HasVersion());

    Program nameLevel;
    const std::size_t names = nameLevel.FirstChild(0);
    Put(nameLevel.bytes, nameLevel.tree + names + 20,
        0x80000000 | static_cast<std::uint32_t>(names), 4);
    EXPECT_FALSE(nameLevel.HasVersion());

    Program languageLevel;
    const std::size_t languages = languageLevel.FirstChild(languageLevel.FirstChild(0));
    Put(languageLevel.bytes, languageLevel.tree + languages + 20, 0x80000000, 4);
    EXPECT_FALSE(languageLevel.HasVersion());
}

TEST(ExeFactsHostile, TreeWithoutALevel) {
    Program program;
    const std::size_t languages = program.FirstChild(program.FirstChild(0));
    Put(program.bytes, program.tree + 20, Get(program.bytes, program.tree + languages + 20, 4), 4);
    EXPECT_FALSE(program.HasVersion());
}

TEST(ExeFactsHostile, DirectoriesThatClaimManyEntries) {
    Program numbered;
    Put(numbered.bytes, numbered.tree + 14, 0xFFFF, 2);
    EXPECT_TRUE(numbered.HasVersion()); // the one that is wanted still stands first
    Put(numbered.bytes, numbered.tree + 16, 15, 4);
    EXPECT_FALSE(numbered.HasVersion());

    Program named;
    Put(named.bytes, named.tree + 12, 0xFFFF, 2);
    EXPECT_FALSE(named.HasVersion());

    Program empty;
    Put(empty.bytes, empty.tree + empty.FirstChild(0) + 12, 0, 4);
    EXPECT_FALSE(empty.HasVersion());
}

TEST(ExeFactsHostile, AVersionResourceOfAnotherNumberIsTaken) {
    Program program;
    Put(program.bytes, program.tree + program.FirstChild(0) + 16, 101, 4);
    EXPECT_TRUE(program.HasVersion());
}

TEST(ExeFactsHostile, AnotherTypeOfResourceIsNotAVersion) {
    Program program;
    Put(program.bytes, program.tree + 16, 24, 4);
    EXPECT_FALSE(program.HasVersion());
}

TEST(ExeFactsHostile, RecordsThatAreTooSmall) {
    Program length; // of the fixed record, as its own head tells
    Put(length.bytes, length.fixedRecord - 38, 51, 2);
    EXPECT_FALSE(length.HasVersion());

    Program size; // of the resource, as the tree tells
    const std::size_t data =
        Get(size.bytes, size.tree + size.FirstChild(size.FirstChild(0)) + 20, 4);
    Put(size.bytes, size.tree + data + 4, 91, 4);
    EXPECT_FALSE(size.HasVersion());
}

TEST(ExeFactsHostile, ResourcesOutsideAllSections) {
    Program program;
    Put(program.bytes, program.optional + 112 + 16, 0xFFFFFFF0, 4);
    EXPECT_FALSE(program.HasVersion());
    EXPECT_EQ(Read(program.bytes).exeType, kWin32Type);
}

TEST(ExeFactsHostile, FewerDirectoriesThanResourcesNeed) {
    Program program;
    Put(program.bytes, program.optional + 108, 2, 4);
    EXPECT_FALSE(program.HasVersion());
    Put(program.bytes, program.optional + 108, 3, 4);
    EXPECT_TRUE(program.HasVersion());
}

TEST(ExeFactsHostile, HeadersFarBehindTheEnd) {
    Program program;
    Put(program.bytes, 0x3C, 0xFFFFFFFF, 4);
    EXPECT_EQ(Read(program.bytes).exeType, kDosType);
    EXPECT_FALSE(program.HasVersion());
}

// The resource table of the Windows 3.1 program, with a version resource put behind the file.
std::string Win16WithVersion(std::uint32_t tableSize) {
    constexpr std::size_t kHeader = 0x80;
    constexpr std::size_t kTable = kHeader + 0x40;
    std::string bytes = Bytes("ne_win16_310.exe");
    const std::size_t resource = 0x20000;
    bytes.resize(resource + 72);
    Put(bytes, kHeader + 0x24, 0x40, 2);
    Put(bytes, kHeader + 0x26, 0x40 + tableSize, 2);
    const std::uint32_t table[] = {4, // places are multiples of 16
                                   0x8003,
                                   1,
                                   0,
                                   0, // one icon, 8 bytes and 12
                                   0,
                                   0,
                                   0,
                                   0,
                                   0,
                                   0,
                                   0x8010,
                                   1,
                                   0,
                                   0, // one version
                                   resource >> 4,
                                   5,
                                   0,
                                   0x8001,
                                   0,
                                   0,
                                   0};
    std::size_t at = kTable;
    for (const std::uint32_t word : table) {
        Put(bytes, at, word, 2);
        at += 2;
    }
    Put(bytes, resource, 72, 2);
    Put(bytes, resource + 2, 52, 2);
    bytes.replace(resource + 4, 16, std::string_view("VS_VERSION_INFO\0", 16));
    Put(bytes, resource + 20, 0xFEEF04BD, 4);
    Put(bytes, resource + 28, 3 << 16 | 10, 4);
    Put(bytes, resource + 52, 0x10001, 4);
    return bytes;
}

TEST(ExeFactsHostile, Win16VersionRecord) {
    const auto record = Read(Win16WithVersion(44)).version;
    ASSERT_TRUE(record);
    EXPECT_EQ(VersionText(*record), "3.10");
    EXPECT_EQ(OsText(record->os), "DOS_WINDOWS16");
}

TEST(ExeFactsHostile, Win16TableThatEndsEarly) {
    for (std::uint32_t size = 0; size < 32; ++size) {
        EXPECT_FALSE(Read(Win16WithVersion(size)).version) << size;
    }
}

TEST(ExeFactsHostile, Win16TableBeyondTheLimit) {
    EXPECT_FALSE(Read(Win16WithVersion(0xFF00)).version);
}

TEST(ExeFactsHostile, Win16TableWithAnImpossibleShift) {
    std::string bytes = Win16WithVersion(44);
    Put(bytes, 0xC0, 0xFFFF, 2);
    EXPECT_FALSE(Read(bytes).version);
}

TEST(ExeFactsHostile, Win16Kinds) {
    std::string bytes = Bytes("ne_win16_310.exe");
    bytes[0x80 + 0x36] = 5; // a DOS extender
    EXPECT_EQ(Read(bytes).exeType, kDosType);
    bytes[0x80 + 0x36] = 1; // another system
    EXPECT_EQ(Read(bytes).exeType, 0u);
    bytes[0x80 + 0x36] = 2;
    bytes[0x80 + 0x0D] = static_cast<char>(0x83); // a library
    EXPECT_EQ(Read(bytes).exeType, 0u);
}

} // namespace
} // namespace tarvix::results
