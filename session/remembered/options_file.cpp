#include "session/remembered/options_file.h"

#include "platform/dir.h"
#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/names.h"
#include "session/attempt.h"
#include "session/paths/env_variables.h"
#include "session/product.h"
#include "session/prompt_id.h"
#include "session/remembered/replace_file.h"
#include "session/remembered/unsaved.h"
#include "session/session.h"
#include "session/settings/option_values.h"
#include "text/characters.h"
#include "text/list_marks.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <memory>

namespace tarvix::session {

namespace {

using platform::TextStream;

constexpr std::string_view kRoutine = "OpenOptionFile";
constexpr std::string_view kHeading = "Tarvix Settings - Version";
constexpr std::string_view kWarning =
    "DO NOT EDIT WHILE TARVIX IS RUNNING, edits will be lost at close.";
constexpr int kDocumentsSince = 6000;     // of intOSVersion
constexpr std::size_t kMostVersion = 100; // characters in the name of a copy

// What a damaged file has for its version must still make one name.
std::string AsName(std::string_view version) {
    std::string name(text::Left(version, kMostVersion));
    std::ranges::replace_if(
        name, [](char c) { return c == '/' || c == 0; }, '_');
    return platform::PieceToDrive(name);
}

ErrorContext ContextOf(const Session& session) {
    return {.routine = kRoutine,
            .moduleName = session.frmSearch.Name(),
            .searchOrDestination = session.state.strOptionFile,
            .objectType = ObjectType::kFile};
}

// One reading of the file, from its version to the last line that counts.
class Reading {
  public:
    explicit Reading(Session& session)
        : session_(session), options_(session.state.options), path_(session.state.strOptionFile) {}

    // Leaves the fields of lines that were not met to FillMissing.
    void Run() {
        if (CheckVersion()) ReadLines();
    }
    void FillMissing() {
        for (std::size_t i = 0; i < kOptionKeys.size(); ++i) {
            const OptionKey& key = kOptionKeys[i];
            if (!met_[i]) {
                FillMissingOption(options_, key);
                if (!key.missing.empty()) ShowOption(session_, key);
            }
        }
        if (options_.strDefSearchFolder.front().empty()) TakeFirstFolder();
    }

  private:
    // The end of the file simply ends the reading.
    static std::optional<int> EndsQuietly(const platform::PlatformError& error) {
        if (error.number == platform::kInputPastEnd) return kRecoveryLeave;
        return std::nullopt;
    }
    template <class Statement>
    auto Try(Statement&& statement) {
        return Attempt(session_, ContextOf(session_), std::forward<Statement>(statement),
                       EndsQuietly);
    }
    bool Open() {
        auto opened = Try(
            [this] { return session_.files().OpenAsTextStream(path_, platform::OpenMode::kRead); });
        session_.state.blnOptionFileUnread = !opened;
        if (opened) stream_ = std::move(*opened);
        return stream_ != nullptr;
    }

    // A reading that broke off is no end of the file.
    void NoteEnd(int error) {
        if (error != platform::kInputPastEnd) session_.state.blnOptionFileUnread = true;
    }

    bool CheckVersion() {
        if (!Open()) return false;
        std::string version;
        for (int line = 0; line < 2; ++line) {
            auto read = Try([this] { return stream_->ReadLine(); });
            if (!read) return NoteEnd(read.ErrorNumber()), false;
            version = std::move(*read);
        }
        stream_.reset();
        if (version != ProductVersion() && !CopyVersion(version)) return false;
        return Open();
    }

    bool CopyVersion(std::string_view version) {
        const std::string copy =
            fmt::format("{}TXOptionFile_{}.txt", text::ParentFolderSlash(path_), AsName(version));
        const auto copied = Try([&] { return session_.files().CopyFile(path_, copy, true, {}); });
        // Options that were not read are not written over either.
        session_.state.blnOptionFileUnread = !copied;
        if (!copied) return false;
        session_.MsgBox(PromptId::kOptionsBackedUp,
                        fmt::format("Since you have upgraded Tarvix or possibly editted your "
                                    "options manually, a backup named:\r\n\r\n{} was created.",
                                    session_.Shown(copy)));
        return true;
    }

    void ReadLines() {
        while (true) {
            auto line = Try([this] { return stream_->ReadLine(); });
            if (!line) return NoteEnd(line.ErrorNumber());
            const OptionLine split = SplitOptionLine(*line);
            if (split.key == text::kEndMark) return;
            const auto taken = Try([&] { return Take(split); });
            // What stands behind it was not read, and must not be written over.
            if (!taken) session_.state.blnOptionFileUnread = true;
            if (!taken && taken.recovery != kRecoveryNext) return;
        }
    }

    platform::Result<void> Take(const OptionLine& line) {
        if (line.key == "Include" || line.key == "Exclude") {
            return TakeEnvVariable(options_, line, line.key == "Include");
        }
        const std::size_t place = FindOptionKey(line.key);
        if (place == kOptionKeys.size()) return {};
        const OptionKey& key = kOptionKeys[place];
        if (auto taken = TakeOption(options_, key, line); !taken) return taken;
        met_[place] = true;
        ShowOption(session_, key);
        if (std::holds_alternative<FolderLines>(key.field) && line.paren == "0") TakeFirstFolder();
        return {};
    }

    void TakeFirstFolder() {
        std::string& folder = options_.strDefSearchFolder.front();
        if (folder.empty()) folder = DocumentsFolder(session_);
        session_.frmSearch.cmbDir.Text = folder;
    }

    Session& session_;
    Options& options_;
    const std::string path_;
    std::unique_ptr<TextStream> stream_;
    std::bitset<kOptionKeys.size()> met_;
};

constexpr int kGrey = 2;                                           // of an attribute box
constexpr std::array<std::size_t, 5> kFirstColumns{1, 2, 3, 4, 8}; // beside the name

void SetFirstColumns(Options& options) {
    options.blnListItems.fill(false);
    options.blnListItems.front() = kAllColumns.front();
    for (const std::size_t column : kFirstColumns)
        options.blnListItems[column] = true;
}

// What a new user finds where paths are native: subfolders are looked through, the columns that
// most people read stand in the list, and nothing is left out for how it is stored on the disk.
void SetUpForNative(Options& options) {
    options.blnAllowUserSelectSubfolders = options.blnDefaultToIncludeSubfolders = true;
    SetFirstColumns(options);
    options.byt512 = options.byt128 = options.bytCompressed = kGrey;
}

// A file that can't even be looked at may be there: it is told, and left alone.
bool FindFile(Session& session) {
    const std::string& path = session.state.strOptionFile;
    const auto facts = Attempt(
        session, ContextOf(session), [&] { return session.files().Facts(path); },
        [](const platform::PlatformError& error) -> std::optional<int> {
            const bool isMissing =
                error.number == platform::kFileNotFound || error.number == platform::kPathNotFound;
            return isMissing ? std::optional<int>(kRecoveryLeave) : std::nullopt;
        });
    session.state.blnOptionFileUnread = !facts && facts.recovery != kRecoveryLeave;
    return facts && !facts->IsFolder();
}

void TakeNoFile(Session& session) {
    auto& options = session.state.options;
    options = UsualOptions(session);
    if (session.platform.traits.hasNativePaths) {
        for (const OptionKey& key : kOptionKeys)
            ShowOption(session, key);
    }
    session.frmSearch.cmbDir.Text = options.strDefSearchFolder.front();
}

void ReadFile(Session& session) {
    auto& options = session.state.options;
    const int latestYear = options.intLatestYear;
    options = BlankOptions();
    options.intLatestYear = latestYear;
    Reading reading(session);
    reading.Run();
    reading.FillMissing();
}

} // namespace

void ShowOption(Session& session, const OptionKey& key) {
    auto& form = session.frmSearch;
    const Options& options = session.state.options;
    if (!key.box.empty()) {
        auto& box = static_cast<fields::CheckBox&>(*form.Find(key.box));
        box.Value = options.*std::get<int Options::*>(key.field);
        if (box.Value != 2) box.ForeColor = box.Value == 0 ? fields::kBlue : fields::kRed;
    } else if (key.key == "blnAllowUserSelectSubfolders") {
        form.chkIncludeSubFolders.Enabled = options.blnAllowUserSelectSubfolders;
        form.chkIncludeSubFolders.ToolTipText =
            options.blnAllowUserSelectSubfolders ? "" : "The Options menu lets it be selected.";
        form.mnuOptions_AllowUserSelectSubfolders.Checked = options.blnAllowUserSelectSubfolders;
    } else if (key.key == "blnDefaultToIncludeSubfolders") {
        form.chkIncludeSubFolders.Value = options.blnDefaultToIncludeSubfolders ? 1 : 0;
        form.mnuOptions_DefaultToIncludeSubfolders.Checked = options.blnDefaultToIncludeSubfolders;
    } else if (key.key == "bytFilesVsDirs") {
        form.optFilesVsDirs.Choose(options.bytFilesVsDirs);
    }
}

Options UsualOptions(Session& session) {
    Options options{.intLatestYear = session.state.options.intLatestYear};
    if (session.platform.traits.hasNativePaths) SetUpForNative(options);
    options.strDefSearchFolder.front() = DocumentsFolder(session);
    return options;
}

void TakeFirstColumns(Session& session) {
    SetFirstColumns(session.state.options);
}

void OpenOptionFile(Session& session) {
    auto& state = session.state;
    state.blnOptionFileFound = FindFile(session);
    if (state.blnOptionFileFound) {
        ReadFile(session);
    } else {
        TakeNoFile(session);
    }
    ApplyColumnsToList(session);
    RebuildEnvVarTable(session);
}

void SaveOptionFile(Session& session) {
    const auto& state = session.state;
    if (state.blnOptionFileUnread)
        return NoteLeftAlone(session, "SaveOptionFile", state.strOptionFile);
    auto saved = UpdateTextFile(session.files(), state.strOptionFile, OptionFileText(session));
    if (!saved) TellUnexpected(session, saved.error(), "SaveOptionFile", state.strOptionFile);
}

namespace {
// Options seldom change from one start to the next.
bool IsBackedUp(Session& session) {
    constexpr std::size_t kMost = 1 << 16;
    const auto& state = session.state;
    const auto options = session.files().ReadBytes(state.strOptionFile, 0, kMost);
    return options && options->size() < kMost &&
           HasContent(session.files(), state.strOptionBackupFile, *options);
}
} // namespace

void BackUpOptionFile(Session& session) {
    const auto& state = session.state;
    if (IsBackedUp(session)) return;
    (void)Attempt(
        session,
        {.routine = "Form_Load",
         .moduleName = session.frmSearch.Name(),
         .searchOrDestination = state.strOptionBackupFile,
         .objectType = ObjectType::kFile},
        [&] {
            return session.files().CopyFile(state.strOptionFile, state.strOptionBackupFile, true,
                                            {});
        },
        [&](const platform::PlatformError&) -> std::optional<int> {
            // That the folder takes nothing is told once, with the logs.
            if (!TryDataFolder(session)) return kRecoverySkip;
            return std::nullopt;
        });
}

std::string OptionFileText(const Session& session) {
    const Options& options = session.state.options;
    std::string text;
    const auto add = [&text](std::string_view line) { text.append(line).append("\r\n"); };
    for (const std::string_view line : {kHeading, ProductVersion(), kWarning}) {
        add(line);
    }
    for (const OptionKey& key : kOptionKeys) {
        for (const std::string& line : OptionLines(options, key)) {
            add(line);
        }
    }
    for (const std::string& line : EnvVariableLines(options)) {
        add(line);
    }
    return text.append(text::kEndMark);
}

void ApplyColumnsToList(Session& session) {
    auto& list = session.frmSearch.lstMain;
    const Options& options = session.state.options;
    list.SortKey = options.bytSortBy;
    list.SortOrder =
        options.blnSort ? fields::SortDirection::kDescending : fields::SortDirection::kAscending;
    fields::NoteChange(list);
}

std::string DocumentsFolder(Session& session) {
    const std::string usual = session.state.intOSVersion < kDocumentsSince
                                  ? "%UserProfile%\\My Documents"
                                  : "%UserProfile%\\Documents";
    const auto exists = [&session](std::string_view folder) {
        const auto path = platform::ExpandVariables(session.platform.environment, folder);
        return platform::GetFolder(session.files(), path).has_value();
    };
    return !exists(usual) && exists("%Documents%") ? "%Documents%" : usual;
}

} // namespace tarvix::session
