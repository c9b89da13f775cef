#include "tests/platform/conformance.h"

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;

List LinesOf(FileSystem& files, const std::string& path) {
    auto stream = files.OpenAsTextStream(path, OpenMode::kRead);
    if (!stream) return {"could not be opened: " + std::to_string(stream.error().number)};
    List lines;
    while (!(*stream)->AtEndOfStream()) {
        const auto line = (*stream)->ReadLine();
        if (!line) return {"could not be read: " + std::to_string(line.error().number)};
        lines.push_back(*line);
    }
    EXPECT_EQ(NumberOf((*stream)->ReadLine()), kInputPastEnd);
    return lines;
}
} // namespace

TEST_P(FileSystemConformance, TextIsReadByLines) {
    const struct {
        const char* content;
        List lines;
    } table[] = {
        {"", {}},
        {"one", {"one"}},
        {"one\r\ntwo\r\n", {"one", "two"}},
        {"one\ntwo", {"one", "two"}},
        {"one\r\n\r\ntwo\n\n", {"one", "", "two", ""}},
        {"\r\n", {""}},
        {"lone\rreturn\r\n", {"lone\rreturn"}},
        {"\xEF\xBB\xBFmark\r\n", {"mark"}},
        {"\xEF\xBB\xBF", {}},
        {"Z\xC3\xBCrich\r\n", {"Z\xC3\xBCrich"}},
        {"Z\xFCrich \x80\r\n", {"Z\xC3\xBCrich \xE2\x82\xAC"}},
    };
    for (const auto& row : table) {
        disk().MakeFile("a.txt", row.content);
        EXPECT_EQ(LinesOf(files(), At("a.txt")), row.lines) << row.content;
    }
}

TEST_P(FileSystemConformance, TextIsWrittenAsGiven) {
    auto stream = files().CreateTextFile(At("a.txt"), false);
    ASSERT_TRUE(stream);
    EXPECT_TRUE((*stream)->Write("Z\xC3\xBCrich\r\n"));
    EXPECT_TRUE((*stream)->Write(""));
    EXPECT_TRUE((*stream)->Write("lone\nend"));
    EXPECT_TRUE((*stream)->Close());
    EXPECT_EQ(TextOf("a.txt"), "Z\xC3\xBCrich\r\nlone\nend");
}

TEST_P(FileSystemConformance, ANewTextFileIsThereEmptyAtOnce) {
    auto stream = files().CreateTextFile(At("a.txt"), false);
    ASSERT_TRUE(stream);
    EXPECT_EQ(TextOf("a.txt"), "");
}

TEST_P(FileSystemConformance, FlushWritesWhatIsBuffered) {
    auto stream = files().CreateTextFile(At("a.txt"), false);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Write("one"));
    ASSERT_TRUE((*stream)->Flush());
    EXPECT_EQ(TextOf("a.txt"), "one");
}

TEST_P(FileSystemConformance, DestroyingAStreamClosesIt) {
    {
        auto stream = files().CreateTextFile(At("a.txt"), false);
        ASSERT_TRUE(stream);
        ASSERT_TRUE((*stream)->Write("one"));
    }
    EXPECT_EQ(TextOf("a.txt"), "one");
}

TEST_P(FileSystemConformance, AClosedStreamGives52) {
    auto stream = files().CreateTextFile(At("a.txt"), false);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Close());
    EXPECT_EQ(NumberOf((*stream)->Write("x")), kBadFileName);
    EXPECT_EQ(NumberOf((*stream)->Flush()), kBadFileName);
    EXPECT_EQ(NumberOf((*stream)->Close()), kBadFileName);
    auto reader = files().OpenAsTextStream(At("a.txt"), OpenMode::kRead);
    ASSERT_TRUE(reader);
    ASSERT_TRUE((*reader)->Close());
    EXPECT_EQ(NumberOf((*reader)->ReadLine()), kBadFileName);
    EXPECT_TRUE((*reader)->AtEndOfStream());
}

TEST_P(FileSystemConformance, AStreamServesItsOwnDirectionOnly) {
    disk().MakeFile("a.txt", "one");
    auto reader = files().OpenAsTextStream(At("a.txt"), OpenMode::kRead);
    ASSERT_TRUE(reader);
    EXPECT_EQ(NumberOf((*reader)->Write("x")), kBadFileName);
    auto writer = files().OpenAsTextStream(At("a.txt"), OpenMode::kAppend);
    ASSERT_TRUE(writer);
    EXPECT_EQ(NumberOf((*writer)->ReadLine()), kBadFileName);
    EXPECT_TRUE((*writer)->AtEndOfStream());
    ASSERT_TRUE((*writer)->Close());
    EXPECT_EQ(TextOf("a.txt"), "one");
}

TEST_P(FileSystemConformance, CreateTextFileOverwritesOnlyWhenTold) {
    disk().MakeFile("a.txt", "a longer old text");
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("a.txt"), false)), kAlreadyExists);
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("A.TXT"), false)), kAlreadyExists);
    EXPECT_EQ(TextOf("a.txt"), "a longer old text");
    auto stream = files().CreateTextFile(At("A.TXT"), true);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Write("new"));
    ASSERT_TRUE((*stream)->Close());
    EXPECT_EQ(TextOf("a.txt"), "new");
    EXPECT_EQ(Names(""), List{"a.txt"});
}

TEST_P(FileSystemConformance, CreateTextFileWhereItCannotBe) {
    disk().MakeFile("folder\\a.txt", "old");
    disk().SetReadOnly("folder\\a.txt");
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("missing\\a.txt"), true)), kPathNotFound);
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("folder"), false)), kAlreadyExists);
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("folder"), true)), kPathFileAccess);
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("folder\\a.txt"), true)), kPermissionDenied);
    EXPECT_EQ(TextOf("folder\\a.txt"), "old");
}

TEST_P(FileSystemConformance, OpenForWritingEmptiesAndForAppendingKeeps) {
    disk().MakeFile("a.txt", "old");
    auto appender = files().OpenAsTextStream(At("a.txt"), OpenMode::kAppend);
    ASSERT_TRUE(appender);
    ASSERT_TRUE((*appender)->Write(" and more"));
    ASSERT_TRUE((*appender)->Close());
    EXPECT_EQ(TextOf("a.txt"), "old and more");
    auto writer = files().OpenAsTextStream(At("a.txt"), OpenMode::kWrite);
    ASSERT_TRUE(writer);
    EXPECT_EQ(TextOf("a.txt"), "");
    ASSERT_TRUE((*writer)->Write("new"));
    ASSERT_TRUE((*writer)->Close());
    EXPECT_EQ(TextOf("a.txt"), "new");
}

TEST_P(FileSystemConformance, OpenAsTextStreamNeedsAFile) {
    disk().MakeFolder("folder");
    for (const OpenMode mode : {OpenMode::kRead, OpenMode::kWrite, OpenMode::kAppend}) {
        EXPECT_EQ(NumberOf(files().OpenAsTextStream(At("missing"), mode)), kFileNotFound);
        EXPECT_EQ(NumberOf(files().OpenAsTextStream(At("missing\\a"), mode)), kPathNotFound);
        EXPECT_EQ(NumberOf(files().OpenAsTextStream(At("folder"), mode)), kFileNotFound);
    }
    EXPECT_EQ(Names(""), List{"folder"});
}

TEST_P(FileSystemConformance, AReadOnlyFileIsReadButNotWritten) {
    disk().MakeFile("a.txt", "old");
    disk().SetReadOnly("a.txt");
    EXPECT_EQ(LinesOf(files(), At("a.txt")), List{"old"});
    for (const OpenMode mode : {OpenMode::kWrite, OpenMode::kAppend}) {
        EXPECT_EQ(NumberOf(files().OpenAsTextStream(At("a.txt"), mode)), kPermissionDenied);
    }
    EXPECT_EQ(TextOf("a.txt"), "old");
}

TEST_P(FileSystemConformance, ALinkToAFileIsReadAndWrittenThrough) {
    disk().MakeFile("a.txt", "old");
    disk().MakeLink("link", "a.txt");
    disk().MakeLink("dangling", "missing");
    EXPECT_EQ(LinesOf(files(), At("link")), List{"old"});
    EXPECT_EQ(*files().ReadBytes(At("link"), 0, 2), "ol");
    auto stream = files().OpenAsTextStream(At("link"), OpenMode::kWrite);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Write("new"));
    ASSERT_TRUE((*stream)->Close());
    if (!disk().IsRehearsal()) {
        EXPECT_EQ(TextOf("a.txt"), "new");
    }
    EXPECT_NE(AttributesOf("link") & kAlias, 0u);
    EXPECT_EQ(NumberOf(files().OpenAsTextStream(At("dangling"), OpenMode::kRead)), kFileNotFound);
    EXPECT_EQ(NumberOf(files().OpenAsTextStream(At("dangling"), OpenMode::kWrite)), kFileNotFound);
    EXPECT_FALSE(Exists("missing"));
}

TEST_P(FileSystemConformance, ReadBytesGivesPartsOfAFile) {
    disk().MakeFile("a.bin", std::string("01\0003456789", 10));
    const struct {
        std::uint64_t offset;
        std::size_t count;
        std::string bytes;
    } table[] = {
        {0, 4, std::string("01\0003", 4)},
        {4, 3, "456"},
        {8, 100, "89"},
        {10, 5, ""},
        {1000, 5, ""},
        {0, 0, ""},
    };
    for (const auto& row : table) {
        EXPECT_EQ(*files().ReadBytes(At("a.bin"), row.offset, row.count), row.bytes) << row.offset;
    }
}

TEST_P(FileSystemConformance, ReadBytesNeedsAFile) {
    disk().MakeFolder("folder");
    disk().MakeLink("link", "folder");
    EXPECT_EQ(NumberOf(files().ReadBytes(At("missing"), 0, 1)), kFileNotFound);
    EXPECT_EQ(NumberOf(files().ReadBytes(At("missing\\a"), 0, 1)), kPathNotFound);
    EXPECT_EQ(NumberOf(files().ReadBytes(At("folder"), 0, 1)), kFileNotFound);
    EXPECT_EQ(NumberOf(files().ReadBytes(At("link"), 0, 1)), kFileNotFound);
}

TEST_P(FileSystemConformance, WritingChangesTheTime) {
    disk().MakeFile("a.txt", "old");
    disk().SetModified("a.txt", 1'000'000'000'000'000'000);
    auto stream = files().OpenAsTextStream(At("a.txt"), OpenMode::kAppend);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Write("x"));
    ASSERT_TRUE((*stream)->Close());
    EXPECT_GT(files().Facts(At("a.txt"))->modified, 1'000'000'000'000'000'000);
}

TEST_P(FileSystemConformance, OpeningForAppendingAloneLeavesTheTime) {
    disk().MakeFile("a.txt", "old");
    disk().SetModified("a.txt", 1'000'000'000'000'000'000);
    ASSERT_TRUE(files().OpenAsTextStream(At("a.txt"), OpenMode::kAppend));
    EXPECT_EQ(files().Facts(At("a.txt"))->modified, 1'000'000'000'000'000'000);
    EXPECT_EQ(TextOf("a.txt"), "old");
}

TEST_P(FileSystemConformance, AppendingThroughALinkKeepsWhatIsThere) {
    disk().MakeFile("a.txt", "one");
    disk().MakeLink("link", "a.txt");
    auto stream = files().OpenAsTextStream(At("link"), OpenMode::kAppend);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Write(" and two"));
    ASSERT_TRUE((*stream)->Close());
    EXPECT_EQ(*files().ReadBytes(At("link"), 0, 100), "one and two");
}

TEST_P(FileSystemConformance, CreateTextFileOntoADanglingLinkMakesNothing) {
    disk().MakeLink("link", "missing");
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("link"), false)), kAlreadyExists);
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("link"), true)), kFileNotFound);
    EXPECT_EQ(Names(""), List{"link"});
}

TEST_P(FileSystemConformance, AStreamOutlivesTheNameOfItsFile) {
    auto stream = files().CreateTextFile(At("log"), false);
    ASSERT_TRUE(stream);
    ASSERT_TRUE(Move("log", "moved"));
    ASSERT_TRUE((*stream)->Write("1"));
    ASSERT_TRUE((*stream)->Flush());
    EXPECT_EQ(TextOf("moved"), "1");
    ASSERT_TRUE(files().DeleteFile(At("moved"), false));
    ASSERT_TRUE((*stream)->Write("2"));
    EXPECT_TRUE((*stream)->Close());
    EXPECT_TRUE(Names("").empty());
}

TEST_P(FileSystemConformance, AFileIsWrittenThroughOneStreamAtATime) {
    auto first = files().CreateTextFile(At("log.txt"), true);
    ASSERT_TRUE(first);
    ASSERT_TRUE((*first)->Write("one"));
    EXPECT_EQ(NumberOf(files().CreateTextFile(At("log.txt"), true)), kPermissionDenied);
    for (const OpenMode mode : {OpenMode::kWrite, OpenMode::kAppend}) {
        EXPECT_EQ(NumberOf(files().OpenAsTextStream(At("log.txt"), mode)), kPermissionDenied);
    }
    EXPECT_TRUE(files().OpenAsTextStream(At("log.txt"), OpenMode::kRead));
    ASSERT_TRUE((*first)->Close());
    EXPECT_EQ(TextOf("log.txt"), "one");
    auto second = files().OpenAsTextStream(At("log.txt"), OpenMode::kAppend);
    ASSERT_TRUE(second);
    second->reset();
    EXPECT_TRUE(files().OpenAsTextStream(At("log.txt"), OpenMode::kWrite));
    EXPECT_EQ(TextOf("log.txt"), "");
}

// ---- content in place of content ----

TEST_P(FileSystemConformance, ContentIsReplacedByThatOfAnotherFile) {
    for (const char* content : {"new", "a longer content than before\r\n", ""}) {
        disk().MakeFile("a.txt", "old content");
        disk().MakeFile("b.txt", content);
        ASSERT_TRUE(files().ReplaceContent(At("a.txt"), At("b.txt")));
        EXPECT_EQ(TextOf("a.txt"), content);
        EXPECT_EQ(TextOf("b.txt"), content);
        EXPECT_EQ(files().Facts(At("a.txt"))->size, std::string_view(content).size());
        EXPECT_EQ(Names(""), (List{"a.txt", "b.txt"}));
    }
}

TEST_P(FileSystemConformance, ReplacedContentMayBeLongAndMayBeNothing) {
    std::string content(3'000'000, 'x');
    for (std::size_t i = 0; i < content.size(); i += 997)
        content[i] = static_cast<char>('a' + i % 23);
    disk().MakeFile("a.txt", "old");
    disk().MakeFile("b.txt", content);
    disk().MakeFile("c.txt", "");
    ASSERT_TRUE(files().ReplaceContent(At("a.txt"), At("b.txt")));
    EXPECT_TRUE(TextOf("a.txt") == content);
    ASSERT_TRUE(files().ReplaceContent(At("a.txt"), At("c.txt")));
    EXPECT_EQ(TextOf("a.txt"), "");
}

TEST_P(FileSystemConformance, ReplacedContentKeepsWhatElseAFileHas) {
    disk().MakeFile("a.txt", "old");
    disk().MakeFile("b.txt", "new");
    const bool hasAttributes = disk().SetExtendedAttribute("a.txt", "user.note", "kept");
    ASSERT_TRUE(files().ReplaceContent(At("a.txt"), At("b.txt")));
    EXPECT_EQ(TextOf("a.txt"), "new");
    if (!hasAttributes) return;
    EXPECT_EQ(disk().ExtendedAttribute("a.txt", "user.note"), "kept");
    EXPECT_EQ(disk().ExtendedAttribute("b.txt", "user.note"), std::nullopt);
}

TEST_P(FileSystemConformance, ReplacedContentGoesIntoAReadOnlyFileToo) {
    disk().MakeFile("a.txt", "old");
    disk().MakeFile("b.txt", "new");
    disk().SetReadOnly("a.txt");
    ASSERT_TRUE(files().ReplaceContent(At("a.txt"), At("b.txt")));
    EXPECT_EQ(TextOf("a.txt"), "new");
    EXPECT_NE(AttributesOf("a.txt") & kReadOnly, 0U);
    EXPECT_EQ(AttributesOf("b.txt") & kReadOnly, 0U);
}

TEST_P(FileSystemConformance, ReplacedContentGoesThroughALink) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "a link is a file of its own";
    disk().MakeFile("a.txt", "old");
    disk().MakeFile("b.txt", "new");
    disk().MakeLink("link.txt", "a.txt");
    ASSERT_TRUE(files().ReplaceContent(At("link.txt"), At("b.txt")));
    EXPECT_EQ(TextOf("a.txt"), "new");
    EXPECT_NE(AttributesOf("link.txt") & kAlias, 0U);
    EXPECT_EQ(Names(""), (List{"a.txt", "b.txt", "link.txt"}));
}

TEST_P(FileSystemConformance, ContentIsReplacedOnlyInAFileByAFile) {
    disk().MakeFile("a.txt", "old");
    disk().MakeFolder("folder");
    EXPECT_EQ(NumberOf(files().ReplaceContent(At("a.txt"), At("none.txt"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().ReplaceContent(At("none.txt"), At("a.txt"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().ReplaceContent(At("a.txt"), At("folder"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().ReplaceContent(At("folder"), At("a.txt"))), kFileNotFound);
    EXPECT_EQ(TextOf("a.txt"), "old");
    EXPECT_EQ(Names(""), (List{"a.txt", "folder"}));
    if (!disk().MakeFifo("fifo")) return;
    EXPECT_EQ(NumberOf(files().ReplaceContent(At("a.txt"), At("fifo"))), kBadFileName);
    EXPECT_EQ(NumberOf(files().ReplaceContent(At("fifo"), At("a.txt"))), kBadFileName);
    EXPECT_EQ(TextOf("a.txt"), "old");
}

} // namespace tarvix::platform
