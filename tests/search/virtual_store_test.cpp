#include "results/virtual_store.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

constexpr const char* kStore = "C:\\home\\ann\\.local\\share\\tarvix\\VirtualStore";

// A program in a protected folder, whose data lies in the virtual store.
class VirtualStoreRows : public ProgramFixture {
  protected:
    VirtualStoreRows() {
        machine.environment.programFolder = "C:\\opt\\tarvix";
        Disk().AddFile("C:\\opt\\tarvix\\own.txt", "original");
        Disk().AddFile("C:\\opt\\tarvix\\sub\\plain.txt", "original");
        Disk().AddFile(std::string(kStore) + "\\opt\\tarvix\\own.txt", "copy");
        Disk().AddFile(std::string(kStore) + "\\opt\\tarvix\\sub\\other.txt", "copy");
        Disk().AddFile(std::string(kStore) + "\\opt\\tarvix\\TXFSSearchHistoryFile.txt");
    }
    results::StoreScan Scan(std::string_view location) {
        return results::StoreScanOf(State(), location);
    }
};

TEST_F(VirtualStoreRows, ShowTheCopyOfAnObjectOfTheProgramsFolder) {
    Start();
    WithSubfolders();
    Search("*.txt", "C:\\opt");
    EXPECT_TRUE(Scan("C:\\opt").blnScanVirtualStore);
    EXPECT_TRUE(Scan("C:\\opt").blnScanVirtualStoreOwn);
    EXPECT_THAT(Paths(), ElementsAre(std::string(kStore) + "\\opt\\tarvix\\own.txt",
                                     "C:\\opt\\tarvix\\sub\\plain.txt"));
}

TEST_F(VirtualStoreRows, ShowTheCopyOfAFolder) {
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 3);
    Search("sub*", "C:\\opt\\tarvix");
    EXPECT_THAT(Paths(), ElementsAre(std::string(kStore) + "\\opt\\tarvix\\sub"));
}

TEST_F(VirtualStoreRows, AnObjectMetOnceMoreInTheStoreStaysOneRow) {
    Start();
    WithSubfolders();
    Search("own.*", "C:");
    EXPECT_THAT(Paths(), ElementsAre(std::string(kStore) + "\\opt\\tarvix\\own.txt"));
}

TEST_F(VirtualStoreRows, OtherLocationsAreLeftAlone) {
    Disk().AddFile("C:\\t\\a.txt");
    Start();
    WithSubfolders();
    Search("*.txt", "C:\\t");
    EXPECT_FALSE(Scan("C:\\t").blnScanVirtualStore);
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\a.txt"));
}

TEST_F(VirtualStoreRows, ALocationWithTheDataFolderAloneReplacesNothing) {
    Start();
    WithSubfolders();
    Search("own.*", "C:\\home");
    EXPECT_TRUE(Scan("C:\\home").blnScanVirtualStore);
    EXPECT_FALSE(Scan("C:\\home").blnScanVirtualStoreOwn);
    EXPECT_THAT(Paths(), ElementsAre(std::string(kStore) + "\\opt\\tarvix\\own.txt"));
}

TEST_F(VirtualStoreRows, AnOlderSystemKnowsNoStore) {
    Start();
    State().intOSVersion = 6000;
    WithSubfolders();
    Search("own.*", "C:\\opt");
    EXPECT_FALSE(Scan("C:\\opt").blnScanVirtualStore);
    EXPECT_THAT(Paths(), ElementsAre("C:\\opt\\tarvix\\own.txt"));
}

TEST_F(VirtualStoreRows, AreNotLookedForWhenTheDataLiesBesideTheProgram) {
    machine.environment.protectedFolders.clear();
    Start();
    WithSubfolders();
    Search("own.*", "C:\\opt");
    EXPECT_FALSE(Scan("C:\\opt").blnScanVirtualStore);
    EXPECT_THAT(Paths(), ElementsAre("C:\\opt\\tarvix\\own.txt"));
}

} // namespace
} // namespace tarvix::testing
