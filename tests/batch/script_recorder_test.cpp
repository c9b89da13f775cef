#include "batch/script_recorder.h"
#include "cli/script_runner.h"
#include "session/message_style.h"
#include "session/user_input.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <random>
#include <sstream>

namespace tarvix {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

// A program over a small tree whose user is recorded.
class ScriptRecorder : public testing::ProgramFixture {
  protected:
    void SetUp() override {
        AddTree(machine);
        Start();
        LookForAllAttributes();
    }
    static void AddTree(platform::MemoryPlatform& on) {
        for (const char* file : {"a.mp3", "b.mp3", "c.txt", "sub\\d.mp3", "sub\\e.txt"}) {
            on.disk.AddFile(std::string("C:\\in\\") + file, file);
        }
        on.disk.AddFile("C:\\out\\a.mp3", "older");
    }
    void Record() {
        recorder_ = std::make_unique<batch::ScriptRecorder>(S());
        S().recorder = recorder_.get();
    }
    std::string Recorded() {
        S().recorder = nullptr;
        return recorder_->Text();
    }

  private:
    std::unique_ptr<batch::ScriptRecorder> recorder_;
};

TEST_F(ScriptRecorder, WritesWhatIsSetAndClicked) {
    Record();
    Set(Form().cmbSearchFor, "*.mp3");
    Set(Form().cmbDir, "C:\\in");
    Click(Form().cmdSearch);
    EXPECT_THAT(Recorded(), EndsWith("set cmbSearchFor = *.mp3\n"
                                     "set cmbDir = C:\\in\n"
                                     "click cmdSearch\n"));
}

TEST_F(ScriptRecorder, OfATypedTextOnlyTheWholeStands) {
    Record();
    for (const char* typed : {"*", "*.", "*.m", "*.mp3"}) {
        Set(Form().cmbSearchFor, typed);
    }
    EXPECT_THAT(Recorded(), EndsWith("click optFilesVsDirs(0)\n"
                                     "set chkIncludeSubFolders = 0\n"
                                     "set chkNot = 0\n"
                                     "set chkOneEach = 0\n"
                                     "set chkRepeatSearch = 0\n"
                                     "set chkFastSort = 1\n"
                                     "set chkSize = 0\n"
                                     "set chkReadOnly = 2\n"
                                     "set chkHidden = 2\n"
                                     "set chkSystem = 2\n"
                                     "set chkArchive = 2\n"
                                     "set chkAlias = 2\n"
                                     "set chkCompressed = 2\n"
                                     "set chk256 = 2\n"
                                     "set chk512 = 2\n"
                                     "set chk64 = 2\n"
                                     "set chk128 = 2\n"
                                     "set chkDate = 0\n"
                                     "set cmbSearchFor = *.mp3\n"));
}

TEST_F(ScriptRecorder, AnswersStandBeforeWhatAsks) {
    Search("*.mp3", "C:\\in");
    Record();
    Click(Form().cmdSelectAll);
    prompts.Queue("Yes");
    Click(Form().cmdDeleteSelected);
    EXPECT_THAT(Recorded(), EndsWith("click cmdSelectAll\n"
                                     "answer Yes\n"
                                     "click cmdDeleteSelected\n"));
}

TEST_F(ScriptRecorder, SelectedRowsAreRanges) {
    Set(Form().chkIncludeSubFolders, "0");
    Search("*", "C:\\in");
    Record();
    for (const std::size_t row : {0U, 1U}) {
        S().rows->At(row).selected = true;
    }
    session::UserSelect(S(), 1);
    EXPECT_THAT(Recorded(), EndsWith("click cmdSearch\nselect 1-2\n"));
}

TEST_F(ScriptRecorder, AStopIsTimedByTheYieldsOfWhatRuns) {
    Set(Form().cmbSearchFor, "*");
    Set(Form().cmbDir, "C:\\in");
    Record();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("Open", 1, [this] { Click(Form().cmdStop); });
    Click(Form().cmdSearch);
    const std::string script = Recorded();
    EXPECT_THAT(script, HasSubstr(" yields click cmdStop\nclick cmdSearch\n"));
}

TEST_F(ScriptRecorder, TextsWithBlanksAtTheirEndsAreQuoted) {
    Record();
    Set(Form().cmbSearchFor, " a ");
    EXPECT_THAT(Recorded(), EndsWith("set cmbSearchFor = \" a \"\n"));
}

TEST_F(ScriptRecorder, TheMenuEntryBeginsAndEndsIt) {
    prompts.Queue("C:\\scripts.tarvix");
    Click(Form().mnuFile_RecordScript);
    EXPECT_TRUE(Form().mnuFile_RecordScript.Checked);
    EXPECT_FALSE(Form().mnuFile_RunScript.Enabled);
    Set(Form().cmbSearchFor, "*.mp3");
    Click(Form().mnuFile_RecordScript);
    EXPECT_FALSE(Form().mnuFile_RecordScript.Checked);
    EXPECT_TRUE(Form().mnuFile_RunScript.Enabled);
    const std::string script = Disk().Content("C:\\scripts.tarvix").value_or("");
    EXPECT_THAT(script, EndsWith("set cmbSearchFor = *.mp3\n"));
    EXPECT_THAT(script, Not(HasSubstr("mnuFile")));
}

TEST_F(ScriptRecorder, AFileThatStandsIsReplacedOnlyWhenTheUserSaysSo) {
    Disk().AddFile("C:\\mine.txt", "mine");
    prompts.Queue("C:\\mine.txt");
    prompts.Queue("Cancel");
    Click(Form().mnuFile_RecordScript);
    EXPECT_FALSE(Form().mnuFile_RecordScript.Checked);
    EXPECT_EQ(Disk().Content("C:\\mine.txt"), "mine");
}

TEST_F(ScriptRecorder, ARecordingIsKeptWhenTheProgramEnds) {
    prompts.Queue("C:\\s.tarvix");
    Click(Form().mnuFile_RecordScript);
    Set(Form().cmbSearchFor, "*.mp3");
    S().events.Raise(S(), batch::kEndRecording);
    EXPECT_TRUE(Disk().Exists("C:\\s.tarvix"));
}

// Answers at random, and acts at random in windows.
class RandomUser : public session::PromptService {
  public:
    RandomUser(std::mt19937& random) : random_(random) {}

    std::size_t Below(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }
    template <class T>
    const T& OneOf(const std::vector<T>& all) {
        return all[Below(all.size())];
    }

    int MsgBox(const session::Prompt& prompt) override {
        return OneOf(session::ButtonsOf(prompt.style));
    }
    std::string InputBox(const session::Prompt&, std::string_view preset) override {
        return std::string(preset);
    }
    void ShowModal(session::Session& session, fields::Form& form, const session::Prompt&) override {
        for (int tries = 0; form.IsShown() && tries < 50; ++tries) {
            Act(session, form);
        }
        for (fields::Control* way : form.WaysOut()) {
            if (form.IsShown()) (void)session::UserClick(session, *way);
        }
    }
    std::string PickFolder(const session::Prompt&) override { return "C:\\out"; }
    std::string PickFile(const session::Prompt&, std::string_view) override { return ""; }
    std::string PickNewFile(const session::Prompt&, const session::NewFilePick&) override {
        return "C:\\out\\list.txt";
    }

    void Act(session::Session& session, fields::Form& form) {
        fields::Control& control = *OneOf(form.Controls());
        const bool isBox = control.Name() == "cmbDir";
        if (&form == &session.frmDialog && isBox) {
            (void)session::UserSet(session, control, OneOf(folders_));
        } else if (control.Kind() == fields::ControlKind::kCheckBox) {
            (void)session::UserSet(session, control, Below(2) == 0 ? "0" : "1");
        } else if (control.Kind() == fields::ControlKind::kCommandButton &&
                   !session::MayInterrupt(control) && control.Name() != "cmdPreview") {
            (void)session::UserClick(session, control);
        }
    }

  private:
    std::mt19937& random_;
    std::vector<std::string> folders_{"C:\\out", "C:\\new", "C:\\in\\sub"};
};

// A program of its own over the small tree.
struct World {
    explicit World(session::PromptService& asked) : program(machine.platform, asked) {
        machine.disk.UseClock([this] { return machine.clock.FromLocal({2025, 6, 1, 12, 0, 0}); });
        machine.disk.AddFile(machine.environment.programFolder + "\\TXFSSearchHistoryFile.txt",
                             "*EOF");
        for (const char* file : {"a.mp3", "b.mp3", "c.txt", "sub\\d.mp3", "sub\\e.txt"}) {
            machine.disk.AddFile(std::string("C:\\in\\") + file, file);
        }
        machine.disk.AddFile("C:\\out\\a.mp3", "older");
        program.Start("");
    }
    ~World() { program.Stop(); }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    // The files outside the program's own folder, with what they hold, and the list.
    std::string Result() {
        std::string text;
        for (const std::string& file : machine.disk.AllFiles()) {
            if (file.starts_with(machine.environment.programFolder)) continue;
            text += file + "=" + machine.disk.Content(file).value_or("") + "\n";
        }
        for (std::size_t row = 0; row < program.Rows().Count(); ++row) {
            const auto& shown = program.Rows().At(row);
            text += std::string(shown.name) + (shown.selected ? " *\n" : "\n");
        }
        return text;
    }

    platform::MemoryPlatform machine;
    app::Program program;
};

void SelectAtRandom(RandomUser& user, World& world) {
    auto& rows = world.program.Rows();
    if (rows.Count() == 0) return;
    for (std::size_t row = 0; row < rows.Count(); ++row) {
        rows.At(row).selected = !rows.At(row).IsSpacer() && user.Below(2) == 0;
    }
    session::UserSelect(world.program.Session(), 0);
}

// One deed of a user in the main window.
void ActAtRandom(RandomUser& user, World& world) {
    session::Session& session = world.program.Session();
    auto& form = session.frmSearch;
    const std::vector<std::string> patterns{"*", "*.mp3", "*.txt", "a", "d|e"};
    const std::vector<std::string> folders{"C:\\in", "C:\\out", "C:\\in|C:\\out"};
    const std::vector<fields::Control*> buttons{
        &form.cmdSelectAll,      &form.cmdSelectNone,     &form.cmdSelectReverse,
        &form.cmdCopySelected,   &form.cmdMoveSelected,   &form.cmdDeleteSelected,
        &form.chkFastSort,       &form.optFilesVsDirs[2], &form.cmdSearch,
        &form.cmdRenameSelected, &form.optFilesVsDirs[0], &form.mnuNamesTxt};
    switch (user.Below(6)) {
    case 0:
        return (void)session::UserSet(session, form.cmbSearchFor, user.OneOf(patterns));
    case 1:
        return (void)session::UserSet(session, form.cmbDir, user.OneOf(folders));
    case 2:
        return (void)session::UserClick(session, form.cmdSearch);
    case 3:
        return SelectAtRandom(user, world);
    case 4:
        return (void)session::UserSort(session, static_cast<int>(user.Below(3)));
    default:
        return (void)session::UserClick(session, *user.OneOf(buttons));
    }
}

std::string RecordSession(std::uint32_t seed, std::string& result) {
    std::mt19937 random(seed);
    RandomUser user(random);
    World world(user);
    batch::ScriptRecorder recorder(world.program.Session());
    world.program.Session().recorder = &recorder;
    for (int deed = 0; deed < 25; ++deed) {
        ActAtRandom(user, world);
    }
    world.program.Session().recorder = nullptr;
    std::string script = recorder.Text();
    result = world.Result();
    return script;
}

std::string Replay(const std::string& script) {
    auto statements = cli::ParseScript(script);
    if (!statements) return statements.error().sentence;
    session::ScriptedPrompts scripted;
    World world(scripted);
    std::ostringstream printed;
    cli::ScriptRunner runner(std::move(*statements), scripted, printed);
    try {
        runner.Run(world.program);
    } catch (const cli::ScriptStopped& stopped) {
        return "line " + std::to_string(stopped.line) + ": " + stopped.sentence;
    } catch (const session::PromptUnanswered& unanswered) {
        return "line " + std::to_string(runner.Line()) + ": unanswered: " + unanswered.prompt.text;
    } catch (const session::PromptMisanswered& wrong) {
        return "line " + std::to_string(runner.Line()) + ": " + wrong.why;
    }
    return world.Result();
}

TEST(RecordedSessions, ReplayedOnTheSameTreeGiveTheSameResult) {
    const std::uint32_t rounds = std::getenv("TARVIX_NIGHTLY") != nullptr ? 2000 : 40;
    for (std::uint32_t seed = 1; seed <= rounds; ++seed) {
        std::string result;
        const std::string script = RecordSession(seed, result);
        ASSERT_EQ(Replay(script), result) << "seed " << seed << "\n" << script;
    }
}

} // namespace
} // namespace tarvix
