#include "session/native_entry.h"

#include "fields/control.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "session/session.h"
#include "text/characters.h"

namespace tarvix::session {

namespace {

// Whether a native path would be read back as another, in a list of paths or alone.
bool IsAmbiguous(const platform::NativePaths& paths, std::string_view native,
                 std::string_view drivePath) {
    const bool breaksLine = native.find_first_of("|\r\n") != native.npos;
    return breaksLine || native.ends_with(' ') || !text::IsValidUtf8(native) ||
           paths.ToDrive(native) != drivePath;
}

std::string PieceShown(const Session& session, std::string_view piece) {
    const auto& paths = session.platform.paths;
    const std::string native = paths.ToNative(piece);
    if (native.empty()) return session.Shown(piece);
    if (!IsAmbiguous(paths, native, piece)) return native;
    const std::string address = platform::FileAddress(native);
    return paths.ToDrive(address) == piece ? address : native;
}

std::string_view WithoutBlanksBehind(std::string_view piece, bool isLast) {
    return isLast ? piece : text::RTrim(piece);
}

} // namespace

bool TakesPaths(const fields::Control& control) {
    return control.Kind() == fields::ControlKind::kComboBox && control.Name() == "cmbDir";
}

std::string DriveForm(const platform::NativePaths& paths, std::string_view list) {
    std::string result;
    while (true) {
        const std::size_t bar = list.find('|');
        const std::string_view piece = list.substr(0, bar);
        const bool isLast = bar == std::string_view::npos;
        result += paths.IsNative(piece) ? paths.ToDrive(WithoutBlanksBehind(piece, isLast))
                                        : std::string(piece);
        if (isLast) return result;
        result += '|';
        list.remove_prefix(bar + 1);
    }
}

std::string EntryInDriveForm(const platform::NativePaths& paths, const fields::Control& control,
                             std::string_view typed) {
    const bool isList = control.Owner().Name() == "frmSearch";
    return isList ? DriveForm(paths, typed) : paths.ToDrive(typed);
}

std::string EntryShown(const Session& session, const fields::Control& control,
                       std::string_view text) {
    if (!session.state.platformSettings.showsNative) return std::string(text);
    if (control.Owner().Name() != "frmSearch") {
        const bool isRule = text.find_first_of("*|") != text.npos;
        return isRule ? session.Shown(text) : PieceShown(session, text);
    }
    std::string shown;
    for (const std::string_view piece : text::Split(text, '|')) {
        if (piece.data() != text.data()) shown += '|';
        shown += PieceShown(session, piece);
    }
    return shown;
}

std::string NameShown(const Session& session, std::string_view name) {
    const bool isNative = session.state.platformSettings.showsNative;
    return isNative ? platform::NameToNative(name) : std::string(name);
}

std::string NameInDriveForm(const Session& session, std::string_view typed) {
    const bool isNative = session.state.platformSettings.showsNative;
    return isNative ? platform::NameToDrive(typed) : std::string(typed);
}

} // namespace tarvix::session
