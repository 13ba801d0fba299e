// Helpers shared by the core tests: a scratch program directory with the
// shipped data, and running kaltrova-cli.
#pragma once

#include <filesystem>
#include <string>

namespace kal::test {

// A fresh program directory in a temporary folder, holding a copy of the
// built program directory's data files (ephemeris linked). Removed on
// destruction.
class ScratchAppDir {
  public:
    ScratchAppDir();
    ~ScratchAppDir();
    ScratchAppDir(const ScratchAppDir&) = delete;
    ScratchAppDir& operator=(const ScratchAppDir&) = delete;
    const std::filesystem::path& path() const { return path_; }
    // Writes a file into the directory (bytes as given).
    void Write(const std::string& name, const std::string& bytes) const;

  private:
    std::filesystem::path path_;
};

// The built program directory.
std::filesystem::path AppDir();

struct RunResult {
    int status = 0;
    std::string out;
};
// Runs a shell command and collects its standard output.
RunResult RunShell(const std::string& command);
// Quotes a word for the shell.
std::string ShellQuote(const std::string& s);

} // namespace kal::test
