#include "platform/linux/copy_content.h"

#include "platform/linux/native_facts.h"
#include "platform/linux/system_calls.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <linux/fs.h>
#include <memory>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr int kOpenFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK;
constexpr std::uint64_t kStep = 8 << 20;
constexpr std::size_t kBufferSize = 128 << 10;
constexpr std::uint64_t kCloneFrom = 4096; // smaller files share nothing
constexpr std::uint64_t kToTheEnd = std::numeric_limits<std::uint64_t>::max();

char* Buffer() {
    static thread_local const auto buffer = std::make_unique<char[]>(kBufferSize);
    return buffer.get();
}

// One copy from where both descriptors stand.
class Copier {
  public:
    Copier(int in, int out, CopyRun& run)
        : in_(in), out_(out), run_(run), byKernel_(run.roads.kernelCopies) {}

    // Up to `length` bytes, fewer at the end of the file. `expected` is what the file's size lets
    // one expect.
    Sys<void> Copy(std::uint64_t length, std::uint64_t expected) {
        std::uint64_t done = 0;
        if (byKernel_ && expected > kBufferSize) {
            const auto copied = CopyByKernel(length, done);
            if (!copied) return copied;
        }
        return CopyByBuffer(length, expected, done);
    }

    Sys<void> CopyDataOnly(std::uint64_t size);

  private:
    Sys<void> CopyByKernel(std::uint64_t length, std::uint64_t& done);
    Sys<void> CopyByBuffer(std::uint64_t length, std::uint64_t expected, std::uint64_t done);
    Sys<void> CopyPiece(std::uint64_t begin, std::uint64_t end, std::uint64_t length);
    Sys<void> Tell(std::uint64_t bytes) {
        if (!run_.Add(bytes)) return std::unexpected(ECANCELED);
        return {};
    }

    int in_;
    int out_;
    CopyRun& run_;
    bool byKernel_;
};

bool IsRefusedByKernel(int error) {
    return error == EXDEV || error == EINVAL || error == ENOSYS || error == EOPNOTSUPP ||
           error == EBADF || error == EPERM || error == ETXTBSY;
}

// Ends early where the kernel can't go on; reading and writing then takes the rest.
Sys<void> Copier::CopyByKernel(std::uint64_t length, std::uint64_t& done) {
    while (done < length) {
        const auto step = static_cast<std::size_t>(std::min(kStep, length - done));
        const ssize_t got = ::copy_file_range(in_, nullptr, out_, nullptr, step, 0);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0 && IsRefusedByKernel(errno)) {
            byKernel_ = false;
            return {};
        }
        if (got < 0) return std::unexpected(errno);
        if (got == 0) return {};
        done += static_cast<std::uint64_t>(got);
        if (auto told = Tell(static_cast<std::uint64_t>(got)); !told) return told;
    }
    return {};
}

Sys<void> Copier::CopyByBuffer(std::uint64_t length, std::uint64_t expected, std::uint64_t done) {
    std::uint64_t untold = 0;
    while (done < length) {
        const auto step =
            static_cast<std::size_t>(std::min<std::uint64_t>(kBufferSize, length - done));
        const ssize_t got = ::read(in_, Buffer(), step);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::unexpected(errno);
        if (got == 0) break;
        const auto bytes = static_cast<std::size_t>(got);
        if (auto written = WriteAll(out_, {Buffer(), bytes}); !written) return written;
        done += bytes;
        untold += bytes;
        if (untold >= kStep) {
            if (auto told = Tell(std::exchange(untold, 0)); !told) return told;
        }
        if (bytes < step && done == expected) break; // saves asking for the end
    }
    return untold == 0 ? Sys<void>() : Tell(untold);
}

Sys<void> Copier::CopyPiece(std::uint64_t begin, std::uint64_t end, std::uint64_t length) {
    if (::lseek(in_, static_cast<off_t>(begin), SEEK_SET) < 0 ||
        ::lseek(out_, static_cast<off_t>(begin), SEEK_SET) < 0) {
        return std::unexpected(errno);
    }
    return Copy(length, end - begin);
}

Sys<void> Copier::CopyDataOnly(std::uint64_t size) {
    std::uint64_t at = 0;
    while (at < size) {
        const off_t data = ::lseek(in_, static_cast<off_t>(at), SEEK_DATA);
        if (data < 0 && errno == ENXIO) break; // nothing but a hole is left
        if (data < 0) return CopyPiece(at, size, kToTheEnd);
        const off_t hole = ::lseek(in_, data, SEEK_HOLE);
        if (hole < 0) return CopyPiece(at, size, kToTheEnd);
        const auto begin = static_cast<std::uint64_t>(data);
        const auto end = static_cast<std::uint64_t>(hole);
        if (auto told = Tell(begin - at); !told) return told;
        if (auto copied = CopyPiece(begin, end, end - begin); !copied) return copied;
        at = end;
    }
    if (::ftruncate(out_, static_cast<off_t>(std::max(at, size))) != 0) {
        return std::unexpected(errno);
    }
    return {};
}
} // namespace

Sys<UniqueFd> OpenForCopy(At source) {
    auto fd = OpenAt(source, kOpenFlags | O_NOATIME);
    if (!fd && fd.error() == EPERM) fd = OpenAt(source, kOpenFlags);
    return fd;
}

Sys<UniqueFd> OpenForCopyBelow(At source) {
    auto fd = OpenBelowAtOnce(source, kOpenFlags | O_NOATIME);
    if (!fd && fd.error() == EPERM) fd = OpenBelowAtOnce(source, kOpenFlags);
    const bool isOtherwise =
        !fd && (fd.error() == ENOSYS || fd.error() == EPERM || fd.error() == EAGAIN);
    const std::string_view names = source.name;
    const std::size_t slash = names.rfind('/');
    if (!isOtherwise) return fd;
    if (slash == names.npos) return OpenForCopy(source);
    auto folder = OpenBelow(source.folder, names.substr(0, slash));
    if (!folder) return std::unexpected(folder.error());
    return OpenForCopy({folder->Get(), source.name + slash + 1});
}

Sys<void> CopyContent(int in, int out, const struct statx& st, CopyRun& run) {
    if (run.roads.clones && st.stx_size > kCloneFrom && ::ioctl(out, FICLONE, in) == 0) {
        if (!run.Add(st.stx_size)) return std::unexpected(ECANCELED);
        return {};
    }
    Copier copier(in, out, run);
    if (MayHaveHoles(st)) return copier.CopyDataOnly(st.stx_size);
    return copier.Copy(kToTheEnd, st.stx_size);
}

} // namespace tarvix::platform
