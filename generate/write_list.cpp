#include "generate/write_list.h"

#include "generate/list_source.h"
#include "generate/similar_comments.h"
#include "platform/clock.h"
#include "platform/names.h"
#include "results/selection.h"
#include "session/remembered/replace_file.h"
#include "session/session.h"
#include "text/encoding.h"
#include "text/format.h"
#include "text/list_marks.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::generate {

namespace {

using session::Session;

constexpr std::size_t kPiece = 1 << 16; // bytes
constexpr std::size_t kToldPaths = 10;  // of those that were left out
constexpr double kSecond = 1e9;         // nanoseconds
constexpr std::int64_t kShowEvery = 15'000'000;
constexpr std::int64_t kShowProgressAfter = 500'000'000;

// How far the writing is, shown as often as anybody could read it: the line in hand, and once it
// takes some time how many entries are done and how long the others will take.
class Status {
  public:
    Status(Session& session, std::size_t count)
        : session_(session), count_(count), started_(session.platform.clock.Steady()) {
        session_.frmDialog.prgBytes.Max = static_cast<long long>(count);
        session_.frmDialog.prgBytes.Value = 0;
    }
    ~Status() {
        session_.frmDialog.lblProgress.Visible = session_.frmDialog.prgBytes.Visible = false;
    }
    Status(const Status&) = delete;
    Status& operator=(const Status&) = delete;

    void Show(std::size_t done, std::string_view line) {
        const std::int64_t now = session_.platform.clock.Steady();
        if (now >= due_) {
            due_ = now + kShowEvery;
            line = line.substr(0, line.find('\r'));
            session_.frmDialog.lblStatus.Caption = fmt::format("Writing {}", line);
            if (now - started_ > kShowProgressAfter) ShowProgress(done, now);
        }
        session_.Yield();
    }

  private:
    void ShowProgress(std::size_t done, std::int64_t now) {
        auto& form = session_.frmDialog;
        form.lblProgress.Visible = form.prgBytes.Visible = true;
        form.prgBytes.Value = static_cast<long long>(done);
        const double each = static_cast<double>(now - started_) / static_cast<double>(done);
        const auto left =
            static_cast<std::int64_t>(each * static_cast<double>(count_ - done) / kSecond);
        form.lblProgress.Caption =
            fmt::format("{} of {} entries - {}:{:02} left", text::Format(done, "#,##0"),
                        text::Format(count_, "#,##0"), left / 60, left % 60);
    }

    Session& session_;
    std::size_t count_;
    std::int64_t started_;
    std::int64_t due_ = INT64_MIN;
};

void NoteLeftOut(Session& session, const ListRequest& request, std::size_t index,
                 ListOutcome& outcome) {
    ++outcome.leftOut;
    if (outcome.leftOutPaths.size() >= kToldPaths) return;
    const bool isLocation = request.kind == ListKind::kLocations;
    outcome.leftOutPaths.emplace_back(isLocation ? request.locations[index]
                                                 : session.selection->strSelActualPath[index]);
}

// The folders of the entries, into a file of their own.
class SecondFile {
  public:
    explicit SecondFile(Session& session) : source_(MakePathOnlySource(session)) {}

    platform::Result<void> Begin(platform::FileSystem& files, const std::string& path) {
        auto file = session::NewTextFile::Begin(files, path);
        if (!file) return std::unexpected(std::move(file.error()));
        file_.emplace(std::move(*file));
        return {};
    }
    platform::Result<void> Write() {
        for (; next_ < source_->Count(); ++next_) {
            (void)source_->Append(next_, text_);
            if (text_.size() < kPiece) continue;
            if (auto written = Flush(); !written) return written;
        }
        return {};
    }
    platform::Result<void> Finish(bool hasMark) {
        if (hasMark) text_.append(text::kEndMark).append(kLineEnd);
        if (auto written = Flush(); !written) return written;
        return file_->Finish();
    }

  private:
    platform::Result<void> Flush() {
        auto written = file_->Write(text_);
        text_.clear();
        return written;
    }

    std::unique_ptr<ListSource> source_;
    std::optional<session::NewTextFile> file_;
    std::string text_;
    std::size_t next_ = 0;
};

} // namespace

std::string LeftOutText(const Session& session, const ListOutcome& outcome) {
    if (outcome.leftOut == 0) return {};
    const bool isOne = outcome.leftOut == 1;
    std::string told =
        fmt::format("{} {} a line break in {}, which a list of lines can't hold. "
                    "{} left out:\r\n",
                    text::Format(outcome.leftOut, "#,##0"), isOne ? "object has" : "objects have",
                    isOne ? "its path" : "their paths", isOne ? "It was" : "They were");
    for (const std::string& path : outcome.leftOutPaths) {
        told += fmt::format("\r\n{}", session.Shown(path));
    }
    if (outcome.leftOut > static_cast<std::int64_t>(outcome.leftOutPaths.size())) told += "\r\n...";
    return told;
}

ListOutcome MakeListText(Session& session, const ListRequest& request, ListSource& source,
                         const std::function<bool(std::string_view)>& take) {
    ListOutcome outcome;
    std::string text;
    source.AppendHead(text);
    const std::size_t count = source.Count();
    Status status(session, count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t start = text.size();
        const Appended appended = source.Append(i, text);
        status.Show(i + 1, std::string_view(text).substr(start));
        outcome.isStopped = session.state.blnStopAction || appended == Appended::kEndsRun;
        if (outcome.isStopped) return outcome;
        if (appended == Appended::kLeftOut) {
            NoteLeftOut(session, request, i, outcome);
        } else {
            ++outcome.written;
        }
        if (text.size() < kPiece) continue;
        if (!take(text)) return outcome;
        text.clear();
    }
    source.AppendEnd(text);
    if (EndsInMark(request)) text.append(text::kEndMark).append(kLineEnd);
    source.AppendFooter(text);
    (void)take(text);
    outcome.duplicates = source.Duplicates();
    return outcome;
}

ListOutcome WriteList(Session& session, const ListRequest& request, const std::string& secondFile) {
    ListOutcome outcome;
    // Whether the statement succeeded; else the outcome tells why not.
    const auto succeeds = [&outcome](const platform::Result<void>& result,
                                     const std::string& file) {
        if (result) return true;
        outcome.error = result.error();
        outcome.failedFile = file;
        return false;
    };
    auto file = session::NewTextFile::Begin(session.files(), request.file);
    if (!file) {
        outcome.error = std::move(file.error());
        outcome.failedFile = request.file;
        return outcome;
    }
    std::optional<SecondFile> second;
    if (!secondFile.empty()) {
        second.emplace(session);
        if (!succeeds(second->Begin(session.files(), secondFile), secondFile)) return outcome;
    }
    platform::Result<void> written;
    auto source = MakeListSource(session, request);
    if (!request.similarFolder.empty()) {
        source = WithSimilar(session, request, std::move(source), request.similarFolder);
        outcome.isStopped = source == nullptr;
        if (outcome.isStopped) return outcome;
    }
    outcome = MakeListText(session, request, *source, [&](std::string_view piece) {
        written = file->Write(piece);
        return written.has_value();
    });
    if (outcome.isStopped || !succeeds(written, request.file)) return outcome;
    if (second && !succeeds(second->Write(), secondFile)) return outcome;
    if (!succeeds(file->Finish(), request.file)) return outcome;
    if (second) (void)succeeds(second->Finish(EndsInMark(request)), secondFile);
    return outcome;
}

std::vector<std::string> FirstLines(Session& session, const ListRequest& request,
                                    std::size_t count) {
    const auto source = MakeListSource(session, request);
    std::string text;
    source->AppendHead(text);
    std::vector<std::string> lines;
    const auto isEnough = [&](const std::string& text_so_far) {
        return static_cast<std::size_t>(std::ranges::count(text_so_far, '\n')) >= count;
    };
    std::size_t next = 0;
    while (next < source->Count() && !isEnough(text)) {
        (void)source->Append(next++, text);
    }
    if (next == source->Count()) {
        source->AppendEnd(text);
        if (EndsInMark(request)) text.append(text::kEndMark).append(kLineEnd);
        source->AppendFooter(text);
    }
    text::LineReader reader(text);
    while (!reader.AtEnd() && lines.size() < count) {
        lines.emplace_back(reader.Next());
    }
    return lines;
}

} // namespace tarvix::generate
