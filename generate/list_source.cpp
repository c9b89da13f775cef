#include "generate/list_source.h"

#include "generate/list_paths.h"
#include "generate/number_lines.h"
#include "generate/page.h"
#include "generate/playlist.h"
#include "platform/native_paths.h"
#include "results/link_target.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

namespace tarvix::generate {

namespace {

using session::Session;

// Lists of one line for each selected object.
class SelectionLines : public ListSource {
  public:
    explicit SelectionLines(Session& session)
        : session_(session), selection_(*session.selection), paths_(session) {}
    std::size_t Count() const override {
        return static_cast<std::size_t>(selection_.lngSelTop + 1);
    }
    Appended Append(std::size_t index, std::string& out) override {
        const std::size_t start = out.size();
        AppendLine(index, out);
        if (!FitsInLine(std::string_view(out).substr(start))) {
            out.resize(start);
            return Appended::kLeftOut;
        }
        out += kLineEnd;
        return Appended::kWritten;
    }

  protected:
    virtual void AppendLine(std::size_t index, std::string& out) = 0;

    Session& session_;
    const results::Selection& selection_;
    ListPaths paths_;
};

class NameLines : public SelectionLines {
  public:
    using SelectionLines::SelectionLines;

  protected:
    void AppendLine(std::size_t index, std::string& out) override {
        paths_.AppendName(out, selection_.strSelName[index]);
    }
};

class PathLines : public SelectionLines {
  public:
    using SelectionLines::SelectionLines;

  protected:
    void AppendLine(std::size_t index, std::string& out) override {
        paths_.Append(out, selection_.strSelActualPath[index]);
    }
};

// A list that is read back: one name that isn't UTF-8 would have the whole file read as another
// encoding.
void AppendReadable(ListPaths& paths, std::string_view drivePath, std::string& out) {
    const std::size_t start = out.size();
    paths.Append(out, drivePath);
    if (text::IsValidUtf8(std::string_view(out).substr(start))) return;
    const std::string path = out.substr(start);
    out.resize(start);
    out.append("file://").append(PercentEncode(path));
}

class PathListLines : public SelectionLines {
  public:
    using SelectionLines::SelectionLines;

  protected:
    void AppendLine(std::size_t index, std::string& out) override {
        AppendReadable(paths_, selection_.strSelActualPath[index], out);
    }
};

class FolderLines : public SelectionLines {
  public:
    using SelectionLines::SelectionLines;

  protected:
    void AppendLine(std::size_t index, std::string& out) override {
        paths_.Append(out, text::ParentFolder(selection_.strSelActualPath[index]));
    }
};

class TargetLines : public SelectionLines {
  public:
    using SelectionLines::SelectionLines;

  protected:
    void AppendLine(std::size_t index, std::string& out) override {
        if (!selection_.blnSelIsFile[index]) return;
        const std::string target =
            results::LinkTargetOf(session_, selection_.strSelActualPath[index]);
        const std::string native =
            paths_.IsNative() ? session_.platform.paths.ToNative(target) : std::string();
        out += native.empty() ? target : native;
    }
};

class LocationLines : public ListSource {
  public:
    LocationLines(Session& session, std::vector<std::string> locations)
        : paths_(session), locations_(std::move(locations)) {}
    std::size_t Count() const override { return locations_.size(); }
    Appended Append(std::size_t index, std::string& out) override {
        const std::size_t start = out.size();
        AppendReadable(paths_, locations_[index], out);
        if (!FitsInLine(std::string_view(out).substr(start))) {
            out.resize(start);
            return Appended::kLeftOut;
        }
        out += kLineEnd;
        return Appended::kWritten;
    }

  private:
    ListPaths paths_;
    std::vector<std::string> locations_;
};

} // namespace

std::unique_ptr<ListSource> MakeListSource(Session& session, const ListRequest& request) {
    if (request.isPlaylist) return MakePlaylist(session, request);
    switch (request.kind) {
    case ListKind::kNames:
        return std::make_unique<NameLines>(session);
    case ListKind::kPaths:
        if (request.isPathList) return std::make_unique<PathListLines>(session);
        return std::make_unique<PathLines>(session);
    case ListKind::kTargets:
        return std::make_unique<TargetLines>(session);
    case ListKind::kPage:
        return MakePage(session, request);
    case ListKind::kLocations:
        return std::make_unique<LocationLines>(session, request.locations);
    case ListKind::kNumbers:
        break;
    }
    return MakeNumberLines(request.numbers);
}

std::unique_ptr<ListSource> MakePathOnlySource(Session& session) {
    return std::make_unique<FolderLines>(session);
}

} // namespace tarvix::generate
