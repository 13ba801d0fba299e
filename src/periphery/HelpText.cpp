#include "periphery/HelpText.h"

#include "shell/Session.h"
#include "shell/TextFile.h"

namespace kal {

Messages ShowHelpText(Session& session, const std::string& helpFileName) {
    std::string name = helpFileName;
    while (!name.empty() && (name.front() == '\\' || name.front() == '/')) name.erase(0, 1);
    auto file = FindFile(session.AppPath, name);
    session.out.ClearDataPage();
    auto lines = ReadLines(file);
    if (!lines)
        return {{"Cannot find the file called " + file.string() + ".", "Warning!", Icon::Critical}};
    for (const auto& line : *lines) session.out.Append(line);
    session.out.AppendBlankLine();
    session.ShowDataPage();
    return {};
}

} // namespace kal
