#include "base/SafeWrite.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace kal {

namespace fs = std::filesystem;

namespace {

constexpr size_t kBlock = 64 * 1024;

WriteFaultHook& FaultHook() {
    static WriteFaultHook hook;
    return hook;
}

// The error a step fails with: the injected one, else 0 (go on).
int Injected(WriteStep step, const fs::path& file) {
    const WriteFaultHook& hook = FaultHook();
    return hook ? hook(step, file) : 0;
}

WriteResult Failed(int errorNumber) {
    return {false, WriteErrorReason(errorNumber), errorNumber};
}

// The file a write lands in: the target of a symbolic link, else the file.
fs::path Destination(const fs::path& file) {
    std::error_code ec;
    if (fs::is_symlink(file, ec)) {
        fs::path real = fs::weakly_canonical(file, ec);
        if (!ec) return real;
    }
    return file;
}

fs::path FolderOf(const fs::path& file) {
    fs::path dir = file.parent_path();
    return dir.empty() ? fs::path(".") : dir;
}

// Flushes a folder's entries (a rename into it) to the disk; best effort.
void SyncFolder(const fs::path& dir) {
    int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

// Writes all of `bytes` to `fd` in blocks, asking the fault hook before
// each block. 0 or the error number.
int WriteAll(int fd, std::string_view bytes, const fs::path& file) {
    size_t done = 0;
    while (done < bytes.size()) {
        if (int e = Injected(WriteStep::Write, file)) return e;
        size_t n = std::min(kBlock, bytes.size() - done);
        ssize_t w = ::write(fd, bytes.data() + done, n);
        if (w < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        done += static_cast<size_t>(w);
    }
    return 0;
}

// Flushes and closes `fd`; 0 or the error number (the descriptor is closed
// either way).
int SyncAndClose(int fd, const fs::path& file) {
    int e = Injected(WriteStep::Sync, file);
    if (e == 0 && ::fsync(fd) != 0) e = errno;
    if (::close(fd) != 0 && e == 0) e = errno;
    return e;
}

mode_t UmaskMode() {
    mode_t mask = ::umask(0);
    ::umask(mask);
    return static_cast<mode_t>(0666 & ~mask);
}

// Writes a temporary file beside `file` with `fill`, flushes it and renames
// it over `file`. `fill` writes into the descriptor and returns 0 or an
// error number.
WriteResult ReplaceThrough(const fs::path& file, const std::function<int(int fd)>& fill) {
    const fs::path dest = Destination(file);
    const fs::path dir = FolderOf(dest);
    std::string pattern = (dir / ("." + dest.filename().string() + ".XXXXXX")).string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');

    if (int e = Injected(WriteStep::Create, dest)) return Failed(e);
    int fd = ::mkostemp(name.data(), O_CLOEXEC);
    if (fd < 0) return Failed(errno);
    const fs::path temp(name.data());
    auto abandon = [&](int e) {
        ::unlink(temp.c_str());
        return Failed(e);
    };

    // The new file keeps the old one's permissions and, where allowed, its
    // owner.
    struct stat old {};
    if (::stat(dest.c_str(), &old) == 0) {
        ::fchmod(fd, old.st_mode & 07777);
        if (::fchown(fd, old.st_uid, old.st_gid) != 0) {
            // Only the owner's own files can be given away; the file is then
            // the writer's.
        }
    } else {
        ::fchmod(fd, UmaskMode());
    }

    if (int e = fill(fd)) {
        ::close(fd);
        return abandon(e);
    }
    if (int e = SyncAndClose(fd, temp)) return abandon(e);
    if (int e = Injected(WriteStep::Rename, dest)) return abandon(e);
    if (::rename(temp.c_str(), dest.c_str()) != 0) return abandon(errno);
    SyncFolder(dir);
    return {};
}

} // namespace

std::string WriteErrorReason(int e) {
    switch (e) {
    case ENOSPC:
        return "the disk is full";
    case EDQUOT:
        return "the disk quota is used up";
    case EROFS:
        return "the disk is read-only";
    case EACCES:
    case EPERM:
        return "there is no permission to write there";
    case ENOENT:
        return "its folder does not exist";
    case EISDIR:
        return "a folder has that name";
    case EIO:
        return "the disk reported an input/output error";
    case EFBIG:
        return "the file is too large";
    default:
        break;
    }
    std::string s = std::strerror(e);
    if (!s.empty()) s[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(s[0])));
    return s;
}

WriteResult ReplaceFile(const fs::path& file, std::string_view bytes) {
    return ReplaceThrough(file, [&](int fd) { return WriteAll(fd, bytes, file); });
}

WriteResult ReplaceFileWithCopy(const fs::path& from, const fs::path& to) {
    int in = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
    if (in < 0) return Failed(errno);
    struct stat st {};
    if (::fstat(in, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(in);
        return {false, "the file to copy is not a regular file", EINVAL};
    }
    WriteResult r = ReplaceThrough(to, [&](int fd) {
        std::vector<char> buf(kBlock);
        while (true) {
            ssize_t n = ::read(in, buf.data(), buf.size());
            if (n < 0) {
                if (errno == EINTR) continue;
                return errno;
            }
            if (n == 0) return 0;
            if (int e = WriteAll(fd, std::string_view(buf.data(), static_cast<size_t>(n)), to))
                return e;
        }
    });
    ::close(in);
    return r;
}

WriteResult WriteFileFlushed(const fs::path& file, std::string_view bytes) {
    if (int e = Injected(WriteStep::Create, file)) return Failed(e);
    int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) return Failed(errno);
    int e = WriteAll(fd, bytes, file);
    if (e) {
        ::close(fd);
    } else {
        e = SyncAndClose(fd, file);
    }
    if (e) {
        ::unlink(file.c_str());
        return Failed(e);
    }
    return {};
}

WriteResult RenameFile(const fs::path& from, const fs::path& to) {
    if (int e = Injected(WriteStep::Rename, to)) return Failed(e);
    if (::rename(from.c_str(), to.c_str()) != 0) return Failed(errno);
    SyncFolder(FolderOf(to));
    return {};
}

WriteResult LinkFile(const fs::path& from, const fs::path& to) {
    // A link does not replace a name that is taken.
    if (::unlink(to.c_str()) != 0 && errno != ENOENT) return Failed(errno);
    if (int e = Injected(WriteStep::Link, to)) return Failed(e);
    if (::link(from.c_str(), to.c_str()) == 0) {
        SyncFolder(FolderOf(to));
        return {};
    }
    const int e = errno;
    if (e == EXDEV || e == EPERM || e == EMLINK || e == EOPNOTSUPP)
        return ReplaceFileWithCopy(from, to);
    return Failed(e);
}

Message WriteFailedMessage(const fs::path& file, const WriteResult& result) {
    return {"The file " + file.string() + " could not be written (" + result.reason +
                "). The file on the disk has not been changed.",
            "Error!", Icon::Critical};
}

WriteFaultHook SetWriteFaultHook(WriteFaultHook hook) {
    return std::exchange(FaultHook(), std::move(hook));
}

} // namespace kal
