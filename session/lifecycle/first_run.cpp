#include "session/lifecycle/first_run.h"

#include "platform/dir.h"
#include "platform/file_system.h"
#include "session/lifecycle/help.h"
#include "session/prompt_id.h"
#include "session/session.h"

namespace tarvix::lifecycle {

namespace {

using session::PromptId;

constexpr std::string_view kNotice =
    "WARNING - Using this program carelessly can make your computer not function if used "
    "improperly!!!\r\n\r\n"
    "It gives you the power to rearrange ALMOST ANY file on your pc including Windows system "
    "files.\r\n\r\n"
    "Be sure to read the section labeled 'Who is Tarvix for?' in help(F1).\r\n\r\n"
    "I recommend reading 'Advanced Functions List' in the help menu fully to begin to understand. "
    "That will explain all the changes I made during development and some the dangers.\r\n\r\n"
    "1. Do not turn on Expert Mode in Option until you have a strong understanding of Windows.\r\n"
    "2. Work with files in your Documents folder. (Default search folder).\r\n"
    "3. Backup everything until you have firm understanding of the use of Tarvix. In fact ALWAYS "
    "backup everything.\r\n"
    "I offer no guarantees, results are ENTIRELY based on your actions.\r\n\r\n"
    "The help file will now open.";

bool AsksFor(session::Session& session, PromptId id, std::string_view question) {
    return session.MsgBox(id, question) == session::kYes;
}

} // namespace

void FirstRunCheck(session::Session& session) {
    const std::string& history = session.state.strFSSearchHistoryFile;
    if (!platform::DirName(session.files(), history, platform::kDirFiles).empty()) return;
    session.MsgBox(PromptId::kFirstRunWarning, kNotice);
    OpenHelp(session);
    if (AsksFor(session, PromptId::kOfferGeneralInformation,
                "Would you like to see the General Information file?")) {
        OpenGeneralInformation(session);
    }
    if (AsksFor(session, PromptId::kOfferAdvancedFunctions,
                "Would you like to see the Advanced Functions file?")) {
        OpenAdvancedFunctions(session);
    }
    if (auto made = session.files().CreateTextFile(history, false)) (void)(*made)->Close();
}

} // namespace tarvix::lifecycle
