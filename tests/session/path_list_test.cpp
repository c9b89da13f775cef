#include "session/paths/path_list.h"
#include "tests/session/log_session.h"

namespace tarvix::testing {
namespace {

class PathList : public LogSession {
  protected:
    std::string Read(std::string_view content) {
        Disk().AddFile("C:\\list.mpl", content);
        return session::ReadPathList(session, "C:\\list.mpl");
    }
};

TEST_F(PathList, LinesAreJoinedUpToTheMark) {
    EXPECT_EQ(Read("C:\\a\r\n\r\nC:\\b c\r\n*EOF\r\nC:\\behind\r\n"), "C:\\a|C:\\b c");
}

TEST_F(PathList, TheEndOfTheFileEndsAListWithoutTheMark) {
    EXPECT_EQ(Read("C:\\a\nC:\\b"), "C:\\a|C:\\b");
}

TEST_F(PathList, NativePathsAreTaken) {
    EXPECT_EQ(Read("/home/ann\nC:\\b\n*EOF"), "C:\\home\\ann|C:\\b");
}

TEST_F(PathList, OneThatIsMissingIsTold) {
    prompts.Queue("OK");
    EXPECT_EQ(session::ReadPathList(session, "C:\\none.mpl"), "");
    EXPECT_TRUE(Prompts()[0].text.starts_with("The list can't be read: "));
}

TEST_F(PathList, HalfAListIsNotTakenForTheWhole) {
    machine.faults.FailCall("ReadLine", 2, platform::kDeviceError);
    prompts.Queue("OK");
    EXPECT_EQ(Read("C:\\a\r\nC:\\b\r\n*EOF\r\n"), "");
    EXPECT_TRUE(Prompts()[0].text.starts_with("The list can't be read: "));
}

} // namespace
} // namespace tarvix::testing
