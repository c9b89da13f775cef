#include "results/exe_facts.h"

#include "platform/file_system.h"
#include "results/exe_facts_bytes.h"

#include <fmt/core.h>

namespace tarvix::results {

namespace {

struct NumberText {
    std::uint32_t number;
    std::string_view text;
};

constexpr NumberText kExeTypeTexts[] = {
    {kDosType, "DOS"},
    {kWin32Type, "Win32"},
    {kWin16Type, "Win16"},
    {0, ""},
};

constexpr NumberText kOsTexts[] = {
    {0, "BASE"},
    {1, "WINDOWS 16-bit"},
    {2, "Presentation Mgr 16-bit"},
    {3, "Presentation Mgr 32-bit"},
    {4, "WINDOWS 32-bit"},
    {0x10000, "DOS"},
    {0x10001, "DOS_WINDOWS16"},
    {0x10004, "DOS_WINDOWS32"},
    {0x20000, "OS2 16-bit"},
    {0x20002, "OS216_PM16"},
    {0x30000, "OS2 32-bit"},
    {0x30003, "OS232_PM32"},
    {0x40000, "NT/2000"},
    {0x40004, "NT_WINDOWS32"},
};

template <std::size_t Size>
std::string_view TextOf(const NumberText (&table)[Size], std::uint32_t number,
                        std::string_view otherwise) {
    for (const NumberText& entry : table) {
        if (entry.number == number) return entry.text;
    }
    return otherwise;
}

// A program whose newer header is missing or cut off still runs under DOS.
ExeHeader FindHeader(ExeBytes& bytes) {
    const std::string_view dos = bytes.At(0, 64);
    if (!dos.starts_with("MZ")) return {};
    const std::uint64_t offset = DoubleWordAt(dos, 0x3C);
    if (bytes.At(offset, 24).starts_with(std::string_view("PE\0\0", 4))) {
        return {ExeKind::kPe, offset};
    }
    if (bytes.At(offset, 64).starts_with("NE")) return {ExeKind::kNe, offset};
    return {ExeKind::kDos, 0};
}

std::uint32_t NeType(std::string_view header) {
    constexpr std::uint16_t kLibrary = 0x8000;
    constexpr char kWindows = 2;
    constexpr char kDosExtender = 5;
    const char system = header[0x36];
    if (system == kDosExtender) return kDosType;
    if (system != kWindows || (WordAt(header, 0x0C) & kLibrary) != 0) return 0;
    return kWin16Type | static_cast<std::uint32_t>(WordAt(header, 0x3E)) << 16;
}

// `header` is the file header with what the type needs of the optional header behind it.
std::uint32_t PeType(std::string_view header) {
    constexpr std::uint16_t kLibrary = 0x2000;
    constexpr std::uint16_t kWindowProgram = 2;
    constexpr std::size_t kOptional = 24;
    if (header.empty() || WordAt(header, 20) < 70) return 0;
    const std::uint16_t magic = WordAt(header, kOptional);
    if ((magic != 0x10B && magic != 0x20B) || (WordAt(header, 22) & kLibrary) != 0) return 0;
    if (WordAt(header, kOptional + 68) != kWindowProgram) return kWin32Type;
    const std::uint32_t major = WordAt(header, kOptional + 48) & 0xFF;
    const std::uint32_t minor = WordAt(header, kOptional + 50) & 0xFF;
    return kWin32Type | major << 24 | minor << 16;
}

std::uint32_t TypeOf(ExeBytes& bytes, const ExeHeader& header) {
    switch (header.kind) {
    case ExeKind::kNone:
        return 0;
    case ExeKind::kDos:
        return kDosType;
    case ExeKind::kNe:
        return NeType(bytes.At(header.offset, 64));
    case ExeKind::kPe:
        return PeType(bytes.At(header.offset, 24 + 70));
    }
    return 0;
}

} // namespace

ExeFacts ReadExeFacts(const ByteReader& read) {
    ExeBytes bytes(read);
    const ExeHeader header = FindHeader(bytes);
    const std::uint32_t exeType = TypeOf(bytes, header);
    return {.exeType = exeType, .version = FindVersionRecord(bytes, header)};
}

std::uint32_t ReadExeType(const ByteReader& read) {
    ExeBytes bytes(read);
    return TypeOf(bytes, FindHeader(bytes));
}

std::optional<VersionRecord> ReadVersionRecord(const ByteReader& read) {
    ExeBytes bytes(read);
    return FindVersionRecord(bytes, FindHeader(bytes));
}

ByteReader FileReader(platform::FileSystem& files, std::string_view path) {
    return [&files, path](std::uint64_t offset, std::size_t count) {
        return files.ReadBytes(path, offset, count).value_or(std::string());
    };
}

std::string ExeTypeText(std::uint32_t exeType) {
    std::string out(TextOf(kExeTypeTexts, exeType & 0xFFFF, "<unknown executable>"));
    const std::uint32_t major = exeType >> 24;
    const std::uint32_t minor = exeType >> 16 & 0xFF;
    if (major != 0) out += fmt::format(", v{}.{:02}", major, minor);
    return out;
}

std::string VersionText(const VersionRecord& record) {
    return fmt::format("{}.{}", record.major, record.minor);
}

std::string_view OsText(std::uint32_t os) {
    return TextOf(kOsTexts, os, "");
}

std::string GetExeType(platform::FileSystem& files, std::string_view path) {
    return ExeTypeText(ReadExeType(FileReader(files, path)));
}

void GetVersionInfo(platform::FileSystem& files, std::string_view path, std::string& version,
                    std::string& os) {
    const auto record = ReadVersionRecord(FileReader(files, path));
    version = record ? VersionText(*record) : std::string();
    os = record ? OsText(record->os) : std::string_view();
}

} // namespace tarvix::results
