// Helpers shared by the core tests: a scratch program directory with the
// shipped data, and running kaltrova-cli.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/SafeWrite.h"
#include "chart/InputFields.h"

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

// The input fields a pick of the names-file line `line` fills (as the names
// window transfers it); nullopt when the line is not a record or the
// transfer refuses it.
std::optional<InputFields> FieldsOfRecord(const std::string& line, int dateOrder = 0);

// An empty folder in the temporary folder, removed on destruction.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }
    void Write(const std::string& name, const std::string& bytes) const;
    // The bytes of a file in the folder; nothing when it is missing.
    std::optional<std::string> Read(const std::string& name) const;

  private:
    std::filesystem::path path_;
};

// While it lives, every write of the process fails the `nth` time (counting
// from 1) it reaches `step`, with the system error `error`.
class WriteFault {
  public:
    WriteFault(WriteStep step, int nth, int error);
    // The `nth` step of whatever kind fails.
    WriteFault(int nth, int error);
    ~WriteFault();
    WriteFault(const WriteFault&) = delete;
    WriteFault& operator=(const WriteFault&) = delete;

  private:
    WriteFaultHook previous_;
};

// The steps an undisturbed run of `write` goes through, in order.
std::vector<WriteStep> WriteSteps(const std::function<void()>& write);

// Runs `write` in a child process that ends at the start of its `nth` step
// as a crash or a power cut would: no clean-up, no destructors. True when it
// ended there (false when it finished, died otherwise or hung).
bool CrashAtWriteStep(int nth, const std::function<void()>& write);

// The records of a names file's old bytes that the names file `file` no
// longer holds (all of them when it is gone).
int LostRecords(const std::string& oldBytes, const std::filesystem::path& file);

// A size-limited tmpfs mounted for this test process only (in a mount
// namespace of its own, so nothing of it reaches the rest of the machine): a
// disk that fills. Where the machine does not allow the mount, `mounted()`
// is false and `whyNot()` says why.
class SmallDisk {
  public:
    explicit SmallDisk(size_t bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    bool mounted() const { return !path_.empty(); }
    const std::string& whyNot() const { return whyNot_; }
    const std::filesystem::path& path() const { return path_; }
    // Fills the disk to the last byte.
    void Fill() const;
    // Gives the disk a new size (its files stay).
    bool Resize(size_t bytes) const;
    // Makes the disk read-only.
    bool MakeReadOnly() const;

  private:
    std::filesystem::path path_;
    std::string whyNot_;
};

struct RunResult {
    int status = 0;
    std::string out;
};
// Runs a shell command and collects its standard output.
RunResult RunShell(const std::string& command);
// Quotes a word for the shell.
std::string ShellQuote(const std::string& s);

} // namespace kal::test
