#include "shell/EditorFile.h"

#include "base/TextFile.h"

namespace kal {

std::string EditorText(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& l : lines) text += l + "\n";
    return text;
}

std::string EditorSaveBytes(std::string_view text) {
    std::string bytes;
    for (char c : text) {
        if (c == '\r') continue;
        if (c == '\n')
            bytes += "\r\n";
        else
            bytes += c;
    }
    if (bytes.size() < 2) return {};
    bytes.resize(bytes.size() - 2);
    return bytes + "\r\n";
}

bool RestoreDefaultOptions(const std::filesystem::path& appPath) {
    auto master = ReadFileBytes(FindFile(appPath, "OPTIONS.MST"));
    if (!master) return false;
    return WriteFileBytes(FindFile(appPath, "OPTIONS.OPT"), *master);
}

Message RestoreFailedMessage() {
    return {"Error in operation. Cannot do what is requested.", "Warning!", Icon::Information};
}
Message OptionsFileNotFoundMessage() {
    return {"File Not Found", "Warning!", Icon::Information};
}
Message HeaderFileNotFoundMessage() {
    return {"PERSONAL.NAM file Not Found", "Warning!", Icon::Information};
}

} // namespace kal
