#include "generate/page.h"

#include "generate/list_paths.h"
#include "platform/native_paths.h"
#include "results/link_target.h"
#include "results/selection.h"
#include "session/product.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::generate {

namespace {

using session::Session;

constexpr std::size_t kExtension = 4; // ".lnk", ".htm"

std::string WithoutExtension(std::string_view name) {
    const std::size_t length = text::Length(name);
    return std::string(text::Left(name, length < kExtension ? 0 : length - kExtension));
}

std::string EscapeHtml(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

// One selected object.
struct Listed {
    std::string_view path; // drive path in full
    std::string_view name;
    bool isFile = true;
};

// What an entry of the page shows and where it leads.
struct Entry {
    std::string link;
    std::string text;
};

// The names of an object as a page in one form or the other has them.
class EntryMaker {
  public:
    virtual ~EntryMaker() = default;
    virtual Entry OfObject(const Listed& object, PageText text) = 0;
    // A shortcut by its target; `name` is its own.
    virtual Entry OfShortcut(const std::string& target, std::string_view name, bool isAddress,
                             PageText text) = 0;
    virtual std::string Escaped(std::string_view text) const = 0;
};

std::string LastPiece(std::string_view path) {
    const std::size_t end = path.find_last_not_of("\\/");
    if (end == path.npos) return {};
    path = path.substr(0, end + 1);
    const std::size_t slash = path.find_last_of("\\/");
    return std::string(slash == path.npos ? path : path.substr(slash + 1));
}

std::string ShortcutText(std::string_view name, std::string_view link, std::string folder,
                         PageText text) {
    switch (text) {
    case PageText::kName:
        return WithoutExtension(name);
    case PageText::kPath:
        return std::string(link);
    case PageText::kPathAndName:
        return fmt::format("{} - as - {}", link, WithoutExtension(name));
    case PageText::kFolder:
        return folder;
    case PageText::kRelative:
        break;
    }
    return {};
}

// Links and texts as drive paths, as they stand.
class DriveEntries : public EntryMaker {
  public:
    DriveEntries(Session& session, const std::string& page)
        : paths_(session), folder_(text::ParentFolderSlash(page)) {}

    Entry OfObject(const Listed& object, PageText text) override {
        const std::string path = paths_.Of(object.path);
        return Relative({.link = path, .text = TextOf(object, path, text)}, text);
    }
    Entry OfShortcut(const std::string& target, std::string_view name, bool isAddress,
                     PageText text) override {
        const std::string parent = text::ParentFolder(target);
        const std::string link = isAddress ? ToFileUrl(target) : target;
        const std::string folder = LastPiece(isAddress ? ToFileUrl(parent) : parent);
        return Relative({.link = link, .text = ShortcutText(name, link, folder, text)}, text);
    }
    std::string Escaped(std::string_view text) const override { return std::string(text); }

  private:
    static std::string TextOf(const Listed& object, const std::string& path, PageText text) {
        const std::string parent = text::ParentFolder(path);
        switch (text) {
        case PageText::kName:
            return std::string(object.name);
        case PageText::kPath:
            return object.isFile ? parent : path;
        case PageText::kFolder:
            return std::string(text::FileNameOf(parent));
        default:
            return path;
        }
    }
    Entry Relative(Entry entry, PageText text) const {
        if (text::StartsWithNoCase(entry.link, folder_)) {
            const std::size_t skipped = text::Length(folder_);
            entry.link = std::string(text::Mid(entry.link, skipped + 1));
        }
        if (text == PageText::kRelative) entry.text = entry.link;
        return entry;
    }

    ListPaths paths_;
    std::string folder_; // of the page, with a final "\\"
};

// Links as addresses, or relative ones below the page; texts as this machine writes paths.
class NativeEntries : public EntryMaker {
  public:
    NativeEntries(Session& session, const std::string& page)
        : paths_(session), native_(session.platform.paths),
          folder_(paths_.Of(text::ParentFolderSlash(page))) {
        if (!folder_.ends_with('/')) folder_ += '/';
    }

    Entry OfObject(const Listed& object, PageText text) override {
        const std::string full = paths_.Of(object.path);
        return {.link = LinkTo(full), .text = TextOf(object, full, text)};
    }
    Entry OfShortcut(const std::string& target, std::string_view name, bool /*isAddress*/,
                     PageText text) override {
        const std::string full = native_.ToNative(target);
        if (full.empty()) {
            // An address as it stands.
            std::string shown = text == PageText::kRelative
                                    ? target
                                    : ShortcutText(name, target, LastPiece(target), text);
            return {.link = target, .text = std::move(shown)};
        }
        const std::string folder = LastPiece(full.substr(0, full.rfind('/')));
        std::string shown = text == PageText::kRelative ? std::string(Below(full))
                                                        : ShortcutText(name, full, folder, text);
        return {.link = LinkTo(full), .text = std::move(shown)};
    }
    std::string Escaped(std::string_view text) const override { return EscapeHtml(text); }

  private:
    // The part below the page's folder, or all of it.
    std::string_view Below(std::string_view full) const {
        const bool isBelow = full.starts_with(folder_) && full.size() > folder_.size();
        return isBelow ? full.substr(folder_.size()) : full;
    }
    std::string LinkTo(std::string_view full) const {
        const std::string_view below = Below(full);
        return (below.size() == full.size() ? "file://" : "") + PercentEncode(below);
    }
    std::string TextOf(const Listed& object, const std::string& full, PageText text) const {
        const std::string parent = full.substr(0, std::max<std::size_t>(full.rfind('/'), 1));
        std::string own;
        switch (text) {
        case PageText::kName:
            paths_.AppendName(own, object.name);
            return own;
        case PageText::kPath:
            return object.isFile ? parent : full;
        case PageText::kFolder:
            return LastPiece(parent);
        case PageText::kRelative:
            return std::string(Below(full));
        case PageText::kPathAndName:
            break;
        }
        return full;
    }

    ListPaths paths_;
    const platform::NativePaths& native_;
    std::string folder_; // of the page, with a final "/"
};

std::unique_ptr<EntryMaker> MakerFor(Session& session, const std::string& page) {
    if (!session.state.platformSettings.listsAreNative) {
        return std::make_unique<DriveEntries>(session, page);
    }
    return std::make_unique<NativeEntries>(session, page);
}

class Page : public ListSource {
  public:
    Page(Session& session, const ListRequest& request)
        : session_(session), selection_(*session.selection), request_(request),
          maker_(MakerFor(session, request.file)), paths_(session) {}

    std::size_t Count() const override {
        return static_cast<std::size_t>(selection_.lngSelTop + 1);
    }
    void AppendHead(std::string& out) override {
        std::string title;
        paths_.AppendName(title, WithoutExtension(text::FileNameOf(request_.file)));
        title = maker_->Escaped(title);
        const char* meta = paths_.IsNative() ? "<meta charset=\"utf-8\">" : "";
        out += fmt::format("<HEAD>{0}<TITLE>{1}</TITLE></HEAD>\r\n\r\n"
                           "<CENTER>{1}</CENTER><br><br>\r\n\r\n",
                           meta, title);
    }
    Appended Append(std::size_t index, std::string& out) override {
        const Entry entry = EntryOf(index);
        out.append("\t<a href=\"").append(maker_->Escaped(entry.link)).append("\">\r\n\t\t");
        out.append(maker_->Escaped(entry.text)).append("</a><br>\r\n\r\n");
        return Appended::kWritten;
    }
    void AppendFooter(std::string& out) override {
        out += fmt::format("\r\n\r\n\r\n<BR><BR><BR>\r\n<TT>\r\nBrought to you by: Tarvix {} <BR>"
                           "\r\n</TT>\r\n\t<a href={}>\r\n\t\tTarvix</a><br>\r\n",
                           session::ProductVersion(), session::kProductHome);
    }

  private:
    Entry EntryOf(std::size_t index) {
        const Listed object{.path = selection_.strSelActualPath[index],
                            .name = selection_.strSelName[index],
                            .isFile = selection_.blnSelIsFile[index]};
        const std::string_view extension = text::Right(object.name, kExtension);
        const bool isLnk = text::EqualNoCase(extension, ".lnk");
        if (object.isFile && (isLnk || text::EqualNoCase(extension, ".url"))) {
            const std::string target = results::LinkTargetOf(session_, object.path);
            if (!target.empty()) {
                return maker_->OfShortcut(target, object.name, isLnk, request_.pageText);
            }
        }
        return maker_->OfObject(object, request_.pageText);
    }

    Session& session_;
    const results::Selection& selection_;
    ListRequest request_;
    std::unique_ptr<EntryMaker> maker_;
    ListPaths paths_;
};

bool IsSameOrBelow(std::string_view folder, std::string_view top) {
    const std::string_view bare = text::StripTrailingSlash(top);
    return folder.starts_with(bare) &&
           (folder.size() == bare.size() || folder[bare.size()] == '\\');
}

} // namespace

std::unique_ptr<ListSource> MakePage(Session& session, const ListRequest& request) {
    return std::make_unique<Page>(session, request);
}

std::string ToFileUrl(std::string_view path) {
    std::string address = text::Replace(text::StripTrailingSlash(path), "\\", "/");
    return fmt::format("file:///{}", text::Replace(address, " ", "%20"));
}

std::string FolderOfSelection(const Session& session) {
    const results::Selection& selection = *session.selection;
    std::string common;
    for (std::size_t i = 0; i < selection.strSelActualPath.size(); ++i) {
        const std::string_view path = selection.strSelActualPath[i];
        const std::string folder =
            selection.blnSelIsFile[i] ? text::ParentFolder(path) : std::string(path);
        if (i == 0) common = folder;
        while (!common.empty() && !IsSameOrBelow(folder, common)) {
            common = std::string(text::GetParentFolderName(common));
        }
        if (common.empty()) break;
    }
    return common;
}

} // namespace tarvix::generate
