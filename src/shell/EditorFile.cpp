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
    if (bytes.empty()) return {};
    // The text ends with the line break of its last line, which the file
    // writes once; a last line typed without one keeps all its characters.
    if (bytes.ends_with("\r\n")) bytes.resize(bytes.size() - 2);
    return bytes + "\r\n";
}

WriteResult RestoreDefaultOptions(const std::filesystem::path& appPath) {
    return ReplaceFileWithCopy(FindFile(appPath, "OPTIONS.MST"), FindFile(appPath, "OPTIONS.OPT"));
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
