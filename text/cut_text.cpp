#include "text/cut_text.h"

#include "text/characters.h"

#include <algorithm>

namespace tarvix::text {

namespace {

constexpr std::string_view kGap = "…";
constexpr std::size_t kBeside = 4; // characters that stay in front of a span

bool IsInside(std::string_view s, std::size_t at) {
    return at < s.size() && (static_cast<unsigned char>(s[at]) & 0xC0) == 0x80;
}

std::size_t SharedStart(std::string_view a, std::string_view b) {
    const auto [inA, inB] = std::ranges::mismatch(a, b);
    auto length = static_cast<std::size_t>(inA - a.begin());
    while (length > 0 && (IsInside(a, length) || IsInside(b, length))) {
        --length;
    }
    return length;
}

std::size_t SharedEnd(std::string_view a, std::string_view b) {
    std::size_t length = 0;
    const std::size_t most = std::min(a.size(), b.size());
    while (length < most && a[a.size() - length - 1] == b[b.size() - length - 1]) {
        ++length;
    }
    while (length > 0 && IsInside(a, a.size() - length)) {
        --length;
    }
    return length;
}

// The largest count up to `most` that is not too many; 0 is taken to be right.
template <class IsRight>
std::size_t LargestThat(std::size_t most, IsRight isRight) {
    std::size_t least = 0;
    while (least < most) {
        const std::size_t middle = (least + most + 1) / 2;
        if (isRight(middle))
            least = middle;
        else
            most = middle - 1;
    }
    return least;
}

bool IsRoot(std::string_view folder) {
    return folder.size() <= 1 || folder.ends_with(SeparatorOf(folder));
}

// Whether the path is the folder or lies somewhere in it.
bool Holds(std::string_view folder, std::string_view path) {
    if (!path.starts_with(folder)) return false;
    const char separator = SeparatorOf(path);
    return path.size() == folder.size() || folder.ends_with(separator) ||
           path[folder.size()] == separator;
}

} // namespace

Change ChangedPart(std::string_view before, std::string_view after) {
    const std::size_t start = SharedStart(before, after);
    before.remove_prefix(start);
    after.remove_prefix(start);
    const std::size_t end = SharedEnd(before, after);
    return {{start, before.size() - end}, {start, after.size() - end}};
}

CutText CutAround(std::string_view text, Span span, const Fits& fits) {
    if (fits(text)) return {std::string(text), span};
    const std::string_view front = text.substr(0, span.start);
    const std::size_t inFront = Length(front);
    std::string_view rest = text;
    std::string gap;
    if (inFront > kBeside) {
        // As much in front of the span as leaves the text whole behind it, or as little as may be.
        const auto from = [&](std::size_t kept) { return Right(front, kept).size(); };
        const std::size_t more = LargestThat(inFront - kBeside, [&](std::size_t count) {
            const std::size_t bytes = from(kBeside + count);
            return fits(Concat({kGap, text.substr(span.start - bytes)}));
        });
        const std::size_t bytes = from(kBeside + more);
        rest = text.substr(span.start - bytes);
        span.start = kGap.size() + bytes;
        gap = kGap;
    }
    if (fits(Concat({gap, rest}))) return {Concat({gap, rest}), span};
    const std::size_t kept = LargestThat(Length(rest), [&](std::size_t count) {
        return fits(Concat({gap, Left(rest, count), kGap}));
    });
    const std::string cut = Concat({gap, Left(rest, kept)});
    span.start = std::min(span.start, cut.size());
    span.length = std::min(span.length, cut.size() - span.start);
    return {cut + std::string(kGap), span};
}

char SeparatorOf(std::string_view path) {
    return path.find('/') != path.npos ? '/' : '\\';
}

std::string_view FolderPart(std::string_view path) {
    const std::size_t at = path.rfind(SeparatorOf(path));
    if (at == path.npos) return {};
    const bool isDrive = at == 2 && path[1] == ':';
    return path.substr(0, at == 0 || isDrive ? at + 1 : at);
}

std::string_view NamePart(std::string_view path) {
    const std::size_t at = path.rfind(SeparatorOf(path));
    return at == path.npos ? path : path.substr(at + 1);
}

std::string_view CommonFolder(std::string_view a, std::string_view b) {
    while (!a.empty() && !Holds(a, b)) {
        const std::string_view above = FolderPart(a);
        a = above.size() < a.size() ? above : std::string_view();
    }
    return a;
}

void SharedFolder::AddFolder(std::string_view folder) {
    if (isEmpty_) folder_ = folder;
    isEmpty_ = false;
    if (folder_ != folder) folder_.resize(CommonFolder(folder_, folder).size());
}

std::string_view PathBelow(std::string_view path, std::string_view folder) {
    if (IsRoot(folder) || !Holds(folder, path)) return path;
    return path.size() == folder.size() ? "." : path.substr(folder.size() + 1);
}

std::string CutPath(std::string_view path, const Fits& fits) {
    if (fits(path)) return std::string(path);
    const char separator = SeparatorOf(path);
    const std::string gap = std::string(kGap) + separator;
    const std::size_t first = path.find(separator, 1);
    if (first == path.npos) return std::string(path);
    for (const std::string_view kept : {path.substr(0, first + 1), std::string_view()}) {
        for (std::size_t at = path.find(separator, std::max<std::size_t>(1, kept.size()));
             at != path.npos; at = path.find(separator, at + 1)) {
            std::string cut = Concat({kept, gap, path.substr(at + 1)});
            if (fits(cut)) return cut;
        }
    }
    return gap + std::string(NamePart(path));
}

} // namespace tarvix::text
