#include "periphery/HelpText.h"

#include "base/Passages.h"
#include "base/TextFile.h"

namespace kal {

Messages HelpTextPage(const std::filesystem::path& appPath, const std::string& helpFileName,
                      OutputBuffer& out) {
    auto file = FindTextFile(appPath, helpFileName);
    out.ClearDataPage();
    auto lines = ReadLines(file);
    if (!lines) return {CannotFindFileMessage(file)};
    for (const auto& line : *lines) out.Append(line);
    out.AppendBlankLine();
    return {};
}

} // namespace kal
