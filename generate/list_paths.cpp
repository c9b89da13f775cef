#include "generate/list_paths.h"

#include "platform/names.h"
#include "platform/native_paths.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/characters.h"

#include <array>
#include <utility>

namespace tarvix::generate {

namespace {

constexpr auto kIsUnreserved = [] {
    std::array<bool, 256> table{};
    for (int c = 'a'; c <= 'z'; ++c)
        table[static_cast<std::size_t>(c)] = table[static_cast<std::size_t>(c - 'a' + 'A')] = true;
    for (int c = '0'; c <= '9'; ++c)
        table[static_cast<std::size_t>(c)] = true;
    for (const char c : std::string_view("-._~/"))
        table[static_cast<std::size_t>(c)] = true;
    return table;
}();

} // namespace

ListPaths::ListPaths(session::Session& session)
    : session_(session), isNative_(session.state.platformSettings.listsAreNative) {}

void ListPaths::Append(std::string& out, std::string_view drivePath) {
    if (!isNative_) {
        if (session::ExceedsLimit(session_, drivePath, session::kFolderPortion)) {
            out += session::MixPath(drivePath, session::ShortFormOf(drivePath),
                                    session::kFolderPortion);
        } else {
            out += drivePath;
        }
        return;
    }
    const std::size_t slash = drivePath.rfind('\\');
    const bool hasName = slash != drivePath.npos && slash + 1 < drivePath.size();
    if (!hasName) {
        const std::string native = session_.platform.paths.ToNative(drivePath);
        out += native.empty() ? std::string(drivePath) : native;
        return;
    }
    const std::string& folder = NativeFolder(drivePath.substr(0, slash));
    if (folder.empty()) {
        out += drivePath;
        return;
    }
    out += folder;
    platform::AppendNameToNative(out, drivePath.substr(slash + 1));
}

const std::string& ListPaths::NativeFolder(std::string_view folder) {
    if (const auto* const known = lastFolders_.In(folders_, folder)) return known->second;
    std::string native = session_.platform.paths.ToNative(folder);
    if (!native.empty() && !native.ends_with('/')) native += '/';
    return folders_.emplace(folder, std::move(native)).first->second;
}

std::string ListPaths::Of(std::string_view drivePath) {
    std::string path;
    Append(path, drivePath);
    return path;
}

void ListPaths::AppendName(std::string& out, std::string_view driveName) const {
    if (isNative_) {
        platform::AppendNameToNative(out, driveName);
    } else {
        out += driveName;
    }
}

bool FitsInLine(std::string_view text) {
    return !text.contains('\r') && !text.contains('\n');
}

std::string PercentEncode(std::string_view bytes) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (kIsUnreserved[byte]) {
            encoded += c;
        } else {
            encoded.append({'%', kHex[byte / 16], kHex[byte % 16]});
        }
    }
    return encoded;
}

} // namespace tarvix::generate
