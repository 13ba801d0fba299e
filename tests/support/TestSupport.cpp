#include "TestSupport.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <random>
#include <sys/wait.h>

namespace kal::test {

namespace fs = std::filesystem;

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
