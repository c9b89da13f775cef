#include "forms/folder_offers.h"

#include "forms/folder_lister.h"
#include "forms/text_conversion.h"
#include "platform/file_system.h"
#include "session/session.h"
#include "session/typed_folder.h"

namespace tarvix::forms {

namespace {

// On a thread of its own.
FolderLister::Names FoldersIn(platform::FileSystem& files, const std::string& folder) {
    FolderLister::Names names;
    platform::FolderListing listing;
    const auto opened = files.Open(folder);
    if (!opened || !(*opened)->List(listing)) return names;
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        if (listing[i].isFolder) names.emplace_back(listing[i].name);
    }
    return names;
}

} // namespace

FolderOffers MakeFolderOffers(session::Session& session, const fields::Control& control,
                              QObject& parent) {
    platform::FileSystem& files = session.platform.files;
    auto* lister =
        new FolderLister([&files](const std::string& folder) { return FoldersIn(files, folder); },
                         files.AllowsReadingThreads(), &parent);
    return {.ask = [&session, &control, lister](const QString& text,
                                                std::function<void(QStringList)> onFound) {
        const auto typed = session::TypedFolderIn(session, control, ToUtf8(text));
        if (!typed) return onFound({});
        lister->Ask(typed->folder, [&session, &control, typed = *typed,
                                    onFound =
                                        std::move(onFound)](const FolderLister::Names& names) {
            QStringList texts;
            for (const std::string& offer : session::FolderTexts(session, control, typed, names))
                texts << ToQt(offer);
            onFound(texts);
        });
    }};
}

} // namespace tarvix::forms
