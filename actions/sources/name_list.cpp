#include "actions/sources/name_list.h"

#include "actions/place/name_parts.h"
#include "platform/file_system.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "platform/text_stream.h"
#include "platform/try.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/list_marks.h"

namespace tarvix::actions {

namespace {

// What a line has of an object's name, and what is put behind the line.
struct ListedPart {
    std::string_view part;
    std::string_view extension;
};

ListedPart PartOf(const session::Session& session, std::size_t index, ListedNames names) {
    const auto& tables = *session.selection;
    const std::string_view name = tables.strSelName[index];
    if (names == ListedNames::kWhole || !tables.blnSelIsFile[index]) return {name, {}};
    const NameParts parts = SplitPrefixAndExtension(name);
    if (parts.strExtension.empty()) return {name, {}};
    return {parts.strPrefix, parts.strExtension};
}

} // namespace

platform::Result<NameLines> ReadNameLines(platform::FileSystem& files, const std::string& path) {
    TX_TRY_ASSIGN(const auto stream, files.OpenAsTextStream(path, platform::OpenMode::kRead));
    NameLines list;
    while (!stream->AtEndOfStream()) {
        TX_TRY_ASSIGN(std::string line, stream->ReadLine());
        list.isMarked = line == text::kEndMark;
        if (list.isMarked) return list;
        list.lines.push_back(std::move(line));
    }
    return list;
}

std::string LineOf(const session::Session& session, std::size_t index, ListedNames names) {
    const ListedPart listed = PartOf(session, index, names);
    // Of a name like ".profile" nothing would be left.
    std::string line = platform::ForDisplay(
        listed.part.empty() ? session.selection->strSelName[index] : listed.part);
    if (text::Trim(line).empty()) return text::Replace(line, " ", "\\x20");
    if (line == text::kEndMark) line += ' ';
    return line;
}

std::string NameOf(const session::Session& session, std::size_t index, ListedNames names,
                   std::string_view line) {
    const std::string_view typed = text::Trim(line);
    if (typed.empty()) return {};
    if (typed == text::Trim(LineOf(session, index, names))) {
        return std::string(session.selection->strSelName[index]);
    }
    const ListedPart listed = PartOf(session, index, names);
    std::string name = session.platform.paths.NamePart(line);
    if (!listed.extension.empty()) name.append(".").append(listed.extension);
    return std::string(text::Trim(name));
}

std::string PresentNames(const session::Session& session, ListedNames names, bool isMarked) {
    std::string text;
    for (std::int64_t i = 0; i <= session.selection->lngSelTop; ++i)
        text.append(LineOf(session, static_cast<std::size_t>(i), names)).append("\r\n");
    if (isMarked) text.append(text::kEndMark).append("\r\n");
    return text;
}

} // namespace tarvix::actions
