#include "base/Passages.h"

#include <cctype>
#include <system_error>

#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

namespace {

std::string_view SkipLeadingBlanks(std::string_view line) {
    size_t i = 0;
    while (i < line.size() && line[i] == ' ') ++i;
    return line.substr(i);
}

// Names of text files the program forms in two spellings, upper-cased: the
// meanings window's spelling and the one the files carry.
struct Alias {
    std::string_view formed;
    std::string_view shipped;
};
constexpr Alias TextFileAliases[] = {{"SIGN_CAP.TXT", "SIGN_Cpr.TXT"}};

} // namespace

bool IsPassageEnd(std::string_view line) {
    std::string_view t = SkipLeadingBlanks(line);
    return t == "*" || t == "[]";
}

bool IsPassageHeading(std::string_view line, std::string_view key) {
    std::string_view t = SkipLeadingBlanks(line);
    if (t.size() < key.size()) return false;
    for (size_t i = 0; i < key.size(); ++i) {
        auto a = static_cast<unsigned char>(t[i]);
        auto b = static_cast<unsigned char>(key[i]);
        if (std::toupper(a) != std::toupper(b)) return false;
    }
    return true;
}

std::optional<Passage> FindPassage(const std::vector<std::string>& lines, std::string_view key) {
    size_t i = 0;
    int empties = 0;
    for (; i < lines.size(); ++i) {
        if (lines[i].empty()) {
            if (++empties >= PassageSearchEmptyLimit) return std::nullopt;
        } else {
            empties = 0;
        }
        if (IsPassageHeading(lines[i], key)) break;
    }
    if (i == lines.size()) return std::nullopt;
    Passage p;
    p.heading = i;
    for (; i < lines.size(); ++i) {
        if (!p.lines.empty() && IsPassageEnd(lines[i])) {
            p.ended = true;
            break;
        }
        p.lines.push_back(lines[i]);
    }
    return p;
}

std::filesystem::path FindTextFile(const std::filesystem::path& dir, std::string_view name) {
    while (!name.empty() && (name.front() == '\\' || name.front() == '/')) name.remove_prefix(1);
    std::filesystem::path found = FindFile(dir, name);
    std::error_code ec;
    if (std::filesystem::exists(found, ec)) return found;
    std::string upper = Upper(name);
    for (const Alias& a : TextFileAliases) {
        if (upper != a.formed) continue;
        // Found or not, the file is the one of the shipped name: the message
        // of a missing file names the file the user can look for.
        return FindFile(dir, a.shipped);
    }
    return found;
}

Message CannotFindFileMessage(const std::filesystem::path& file) {
    return {"Cannot find the file called " + file.string() + ".", "Warning!", Icon::Critical};
}

} // namespace kal
