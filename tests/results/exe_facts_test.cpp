#include "results/exe_facts.h"
#include "tests/machine/memory_file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

namespace tarvix::results {
namespace {

std::string Bytes(const std::string& name) {
    std::ifstream in(TARVIX_TEST_DATA "/pe/" + name, std::ios::binary);
    EXPECT_TRUE(in.is_open()) << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

// A file in memory that counts what is asked of it.
struct CountedFile {
    std::string bytes;
    std::size_t calls = 0;
    std::size_t asked = 0;

    ByteReader Reader() {
        return [this](std::uint64_t offset, std::size_t count) {
            ++calls;
            asked += count;
            return offset < bytes.size() ? bytes.substr(offset, count) : std::string();
        };
    }
};

// One line of the table of facts that other programs read from the same files.
struct Expected {
    std::string file, exeType, version, os;
};

// The type as printed there: two letters of the low word, then the high word in hexadecimal.
std::string TypeTextOf(const std::string& printed) {
    static const std::map<std::string, std::string> kTexts = {
        {"ZM 0000", "DOS"},          {"PE 0000", "Win32"}, {"PE 0502", "Win32, v5.02"},
        {"NE 030A", "Win16, v3.10"}, {"00 0000", ""},      {"", ""}};
    return kTexts.at(printed);
}

std::string OsTextOf(const std::string& printed) {
    static const std::map<std::string, std::string> kTexts = {
        {"00000000", "BASE"}, {"00040000", "NT/2000"}, {"00040004", "NT_WINDOWS32"}, {"", ""}};
    return kTexts.at(printed);
}

std::vector<Expected> ReadExpected() {
    std::ifstream in(TARVIX_TEST_DATA "/pe/expected.tsv");
    std::vector<Expected> out;
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) {
        std::vector<std::string> cells;
        std::istringstream row(line);
        for (std::string cell; std::getline(row, cell, '\t');)
            cells.push_back(cell);
        cells.resize(21);
        out.push_back({cells[0], TypeTextOf(cells[19]), cells[7], OsTextOf(cells[11])});
    }
    return out;
}

TEST(ExeFacts, AgreeWithOtherReadersOfTheSameFiles) {
    const auto expected = ReadExpected();
    ASSERT_EQ(expected.size(), 10u);
    platform::MemoryFileSystem disk;
    for (const Expected& row : expected) {
        SCOPED_TRACE(row.file);
        const std::string path = "C:\\" + row.file;
        disk.AddFile(path, Bytes(row.file));
        EXPECT_EQ(GetExeType(disk, path), row.exeType);
        std::string version = "old";
        std::string os = "old";
        GetVersionInfo(disk, path, version, os);
        EXPECT_EQ(version, row.version);
        EXPECT_EQ(os, row.os);
    }
}

TEST(ExeFacts, BothKindsInOneReading) {
    CountedFile file{Bytes("exe64_console_ver.exe")};
    const ExeFacts facts = ReadExeFacts(file.Reader());
    EXPECT_EQ(facts.exeType, kWin32Type);
    ASSERT_TRUE(facts.version);
    EXPECT_EQ(VersionText(*facts.version), "1.2");
    EXPECT_EQ(facts.version->os, 0x40004u);
    EXPECT_LE(file.calls, 3u);
}

TEST(ExeFacts, OtherFilesCostOneSmallRead) {
    for (const std::string& start : {std::string("ID3"), std::string("M"), std::string("mz"),
                                     std::string("\x7F"
                                                 "ELF"),
                                     std::string()}) {
        CountedFile file{start.empty() ? start : start + std::string(100'000, 'x')};
        const ExeFacts facts = ReadExeFacts(file.Reader());
        EXPECT_EQ(facts.exeType, 0u);
        EXPECT_FALSE(facts.version);
        EXPECT_EQ(file.calls, 1u);
        EXPECT_EQ(file.asked, 4096u);
    }
}

TEST(ExeFacts, MissingFilesAndFoldersTellNothing) {
    platform::MemoryFileSystem disk;
    disk.AddFolder("C:\\tools.exe");
    disk.AddSpecial("C:\\pipe.exe");
    for (const char* path : {"C:\\none.exe", "C:\\none\\a.exe", "C:\\tools.exe", "C:\\pipe.exe"}) {
        EXPECT_EQ(GetExeType(disk, path), "") << path;
        std::string version = "old";
        std::string os = "old";
        GetVersionInfo(disk, path, version, os);
        EXPECT_EQ(version + os, "") << path;
    }
}

TEST(ExeFacts, TypeTexts) {
    EXPECT_EQ(ExeTypeText(0), "");
    EXPECT_EQ(ExeTypeText(0x5A4D), "DOS");
    EXPECT_EQ(ExeTypeText(17744), "Win32");
    EXPECT_EQ(ExeTypeText(17742), "Win16");
    EXPECT_EQ(ExeTypeText(0x1234), "<unknown executable>");
    EXPECT_EQ(ExeTypeText(0x04000000 | 17744), "Win32, v4.00");
    EXPECT_EQ(ExeTypeText(0x0A050000 | 17744), "Win32, v10.05");
    EXPECT_EQ(ExeTypeText(0xFFFF0000 | 17742), "Win16, v255.255");
    EXPECT_EQ(ExeTypeText(0x00050000 | 17744), "Win32"); // major 0 counts as none
    EXPECT_EQ(ExeTypeText(0x03001234), "<unknown executable>, v3.00");
}

TEST(ExeFacts, OsTexts) {
    EXPECT_EQ(OsText(0), "BASE");
    EXPECT_EQ(OsText(4), "WINDOWS 32-bit");
    EXPECT_EQ(OsText(0x10001), "DOS_WINDOWS16");
    EXPECT_EQ(OsText(0x20002), "OS216_PM16");
    EXPECT_EQ(OsText(0x30003), "OS232_PM32");
    EXPECT_EQ(OsText(0x40000), "NT/2000");
    EXPECT_EQ(OsText(5), "");
    EXPECT_EQ(OsText(0x50000), "");
    EXPECT_EQ(OsText(0xFFFFFFFF), "");
}

TEST(ExeFacts, VersionPartsAreUnsigned) {
    EXPECT_EQ(VersionText({.major = 65535, .minor = 40000}), "65535.40000");
    EXPECT_EQ(VersionText({}), "0.0");
}

} // namespace
} // namespace tarvix::results
