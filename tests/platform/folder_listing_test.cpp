#include "platform/folder_listing.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

namespace {
std::vector<std::string> NamesOf(const FolderListing& listing) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < listing.Size(); ++i)
        names.emplace_back(listing[i].name);
    return names;
}
} // namespace

TEST(FolderListing, KeepsNamesAndKindsInTheOrderAdded) {
    FolderListing listing;
    listing.Add({"file"});
    listing.Add({"folder", true});
    listing.Add({"link to folder", true, true});
    listing.Add({"mount", true, false, true});
    EXPECT_EQ(NamesOf(listing),
              (std::vector<std::string>{"file", "folder", "link to folder", "mount"}));
    EXPECT_FALSE(listing[0].isFolder);
    EXPECT_TRUE(listing[1].IsWalkable());
    EXPECT_TRUE(listing[2].isFolder && listing[2].isLink && !listing[2].IsWalkable());
    EXPECT_TRUE(listing[3].isFolder && listing[3].isBoundary && !listing[3].IsWalkable());
}

TEST(FolderListing, SortsByUpperCaseFormThenByExactText) {
    FolderListing listing;
    for (const char* name : {"b", "a_", "ab", "B", "aB", "Ä", "a", "ä", "10", "9"}) {
        listing.Add({name});
    }
    listing.SortByName();
    EXPECT_EQ(NamesOf(listing),
              (std::vector<std::string>{"10", "9", "a", "aB", "ab", "a_", "B", "b", "Ä", "ä"}));
}

TEST(FolderListing, SortingKeepsKindsWithTheirNames) {
    FolderListing listing;
    listing.Add({"b", true});
    listing.Add({"a", false, true});
    listing.SortByName();
    EXPECT_TRUE(listing[0].isLink);
    EXPECT_TRUE(listing[1].isFolder);
}

TEST(FolderListing, SortsEmptyAndBadNames) {
    FolderListing listing;
    listing.SortByName();
    EXPECT_EQ(listing.Size(), 0u);
    listing.Add({"b?"});
    listing.Add({"a\xFF"});
    listing.Add({"b?"});
    listing.SortByName();
    EXPECT_EQ(NamesOf(listing), (std::vector<std::string>{"a\xFF", "b?", "b?"}));
}

TEST(FolderListing, ClearForgetsAll) {
    FolderListing listing;
    listing.Add({"a"});
    listing.Clear();
    EXPECT_EQ(listing.Size(), 0u);
    listing.Add({"b"});
    EXPECT_EQ(listing[0].name, "b");
}

TEST(FolderListing, TakesLongNames) {
    FolderListing listing;
    const std::string name(765, 'x'); // 255 carried characters
    listing.Add({name});
    EXPECT_EQ(listing[0].name, name);
}

TEST(FolderListing, CostsItsNamesAndEightBytesEach) {
    FolderListing listing;
    for (int i = 0; i < 1000; ++i)
        listing.Add({"name"});
    EXPECT_EQ(listing.Bytes(), 1000u * (4 + 8));
    listing.ShrinkToFit();
    EXPECT_EQ(listing[999].name, "name");
}

} // namespace tarvix::platform
