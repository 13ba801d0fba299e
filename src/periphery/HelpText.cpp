#include "periphery/HelpText.h"

#include "base/TextFile.h"

namespace kal {

Messages HelpTextPage(const std::filesystem::path& appPath, const std::string& helpFileName,
                      OutputBuffer& out) {
    std::string name = helpFileName;
    while (!name.empty() && (name.front() == '\\' || name.front() == '/')) name.erase(0, 1);
    auto file = FindFile(appPath, name);
    out.ClearDataPage();
    auto lines = ReadLines(file);
    if (!lines)
        return {{"Cannot find the file called " + file.string() + ".", "Warning!", Icon::Critical}};
    for (const auto& line : *lines) out.Append(line);
    out.AppendBlankLine();
    return {};
}

} // namespace kal
