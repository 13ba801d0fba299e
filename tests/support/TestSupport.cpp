#include "TestSupport.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <random>
#include <sched.h>
#include <set>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/TextFile.h"
#include "birthdata/NamesFile.h"
#include "birthdata/Record.h"

namespace kal::test {

namespace fs = std::filesystem;

std::optional<InputFields> FieldsOfRecord(const std::string& line, int dateOrder) {
    auto rec = ParseRecordLine(line);
    InputFields in;
    if (!rec || TransferRecord(*rec, dateOrder, in)) return std::nullopt;
    return in;
}

std::filesystem::path AppDir() {
    return KALTROVA_APPDIR;
}

ScratchAppDir::ScratchAppDir() {
    std::random_device rd;
    path_ = fs::temp_directory_path() / ("kaltrova-test-" + std::to_string(rd()));
    fs::create_directories(path_);
    for (const auto& e : fs::directory_iterator(AppDir())) {
        if (e.is_regular_file()) fs::copy_file(e.path(), path_ / e.path().filename());
    }
    fs::create_directory_symlink(fs::canonical(AppDir() / "ephems"), path_ / "ephems");
}

ScratchAppDir::~ScratchAppDir() {
    std::error_code ec;
    fs::remove_all(path_, ec);
}

void ScratchAppDir::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream out(path_ / name, std::ios::binary | std::ios::trunc);
    out << bytes;
}

TempFolder::TempFolder() {
    std::random_device rd;
    path_ = fs::temp_directory_path() / ("kaltrova-tmp-" + std::to_string(rd()));
    fs::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ec;
    fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(path_, ec);
}

void TempFolder::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream out(path_ / name, std::ios::binary | std::ios::trunc);
    out << bytes;
}

std::optional<std::string> TempFolder::Read(const std::string& name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    if (!in) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), {});
}

namespace {

bool WriteProcFile(const char* file, const std::string& text) {
    int fd = ::open(file, O_WRONLY);
    if (fd < 0) return false;
    bool ok = ::write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::close(fd);
    return ok;
}

// A mount namespace of this process's own: as root directly, otherwise
// inside a user namespace that maps the user to root.
bool OwnMountNamespace(std::string& whyNot) {
    if (::unshare(CLONE_NEWNS) == 0) return true;
    const uid_t uid = ::getuid();
    const gid_t gid = ::getgid();
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        whyNot = std::string("no mount namespace (") + std::strerror(errno) + ")";
        return false;
    }
    WriteProcFile("/proc/self/setgroups", "deny");
    if (!WriteProcFile("/proc/self/uid_map", "0 " + std::to_string(uid) + " 1") ||
        !WriteProcFile("/proc/self/gid_map", "0 " + std::to_string(gid) + " 1")) {
        whyNot = "the user namespace's id maps cannot be written";
        return false;
    }
    return true;
}

} // namespace

WriteFault::WriteFault(WriteStep step, int nth, int error) {
    previous_ = SetWriteFaultHook([=, seen = 0](WriteStep s, const fs::path&) mutable {
        return s == step && ++seen == nth ? error : 0;
    });
}

WriteFault::WriteFault(int nth, int error) {
    previous_ = SetWriteFaultHook(
        [=, seen = 0](WriteStep, const fs::path&) mutable { return ++seen == nth ? error : 0; });
}

WriteFault::~WriteFault() {
    SetWriteFaultHook(previous_);
}

std::vector<WriteStep> WriteSteps(const std::function<void()>& write) {
    std::vector<WriteStep> steps;
    WriteFaultHook previous = SetWriteFaultHook([&](WriteStep s, const fs::path&) {
        steps.push_back(s);
        return 0;
    });
    write();
    SetWriteFaultHook(previous);
    return steps;
}

bool CrashAtWriteStep(int nth, const std::function<void()>& write) {
    constexpr int kCrashed = 86;
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0) {
        SetWriteFaultHook([nth, seen = 0](WriteStep, const fs::path&) mutable {
            if (++seen == nth) ::_exit(kCrashed);
            return 0;
        });
        write();
        ::_exit(0);
    }
    // A child that hangs is stopped after half a minute.
    int status = 0;
    for (int waited = 0; waited < 3000; ++waited) {
        const pid_t done = ::waitpid(child, &status, WNOHANG);
        if (done == child) return WIFEXITED(status) && WEXITSTATUS(status) == kCrashed;
        if (done < 0) return false;
        ::usleep(10000);
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return false;
}

int LostRecords(const std::string& oldBytes, const fs::path& file) {
    std::multiset<std::string> now;
    if (fs::exists(file))
        for (const auto& r : LoadNamesFile(file).records) now.insert(RecordLine(r));
    int lost = 0;
    for (const auto& line : SplitLines(oldBytes)) {
        auto r = ParseRecordLine(line);
        if (!r) continue;
        auto it = now.find(RecordLine(*r));
        if (it == now.end())
            ++lost;
        else
            now.erase(it);
    }
    return lost;
}

SmallDisk::SmallDisk(size_t bytes) {
    if (!OwnMountNamespace(whyNot_)) return;
    if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
        whyNot_ = std::string("mounts cannot be made private (") + std::strerror(errno) + ")";
        return;
    }
    std::random_device rd;
    fs::path dir = fs::temp_directory_path() / ("kaltrova-disk-" + std::to_string(rd()));
    fs::create_directories(dir);
    const std::string opts = "size=" + std::to_string(bytes);
    if (::mount("tmpfs", dir.c_str(), "tmpfs", 0, opts.c_str()) != 0) {
        whyNot_ = std::string("tmpfs cannot be mounted (") + std::strerror(errno) + ")";
        fs::remove(dir);
        return;
    }
    path_ = dir;
}

SmallDisk::~SmallDisk() {
    if (path_.empty()) return;
    ::umount2(path_.c_str(), MNT_DETACH);
    std::error_code ec;
    fs::remove(path_, ec);
}

bool SmallDisk::Resize(size_t bytes) const {
    const std::string opts = "size=" + std::to_string(bytes);
    return ::mount(nullptr, path_.c_str(), nullptr, MS_REMOUNT, opts.c_str()) == 0;
}

bool SmallDisk::MakeReadOnly() const {
    return ::mount(nullptr, path_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

void SmallDisk::Fill() const {
    int fd = ::open((path_ / "filler").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (fd < 0) return;
    std::string block(4096, 'x');
    while (::write(fd, block.data(), block.size()) > 0) {
    }
    // The last bytes of a partly used block.
    while (::write(fd, block.data(), 1) > 0) {
    }
    ::close(fd);
}

std::string ShellQuote(const std::string& s) {
    std::string q = "'";
    for (char c : s) {
        if (c == '\'')
            q += "'\\''";
        else
            q += c;
    }
    return q + "'";
}

RunResult RunShell(const std::string& command) {
    RunResult r;
    FILE* p = popen(command.c_str(), "r");
    if (!p) return {-1, ""};
    std::array<char, 4096> buf;
    size_t n;
    while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) r.out.append(buf.data(), n);
    int st = pclose(p);
    r.status = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    return r;
}

} // namespace kal::test
