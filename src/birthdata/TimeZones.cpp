#include "birthdata/TimeZones.h"

#include <cctype>

#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

Message TzCorruptMessage() {
    return {"The file TZ.DAT is corrupt.", "Error!", Icon::Critical};
}

std::optional<std::vector<std::string>> FreeFormatFields(std::string_view text) {
    std::vector<std::string> fields;
    size_t i = 0;
    const size_t n = text.size();
    auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (i < n) {
        while (i < n && blank(text[i])) ++i;
        if (i >= n) break;
        auto eatLineEnd = [&] {
            if (i < n && text[i] == '\r') ++i;
            if (i < n && text[i] == '\n') ++i;
        };
        // A line holding nothing reads as one empty field.
        if (text[i] == '\r' || text[i] == '\n') {
            fields.emplace_back();
            eatLineEnd();
            continue;
        }
        std::string field;
        if (text[i] == '"') {
            size_t close = text.find('"', i + 1);
            if (close == std::string_view::npos) return std::nullopt;
            field = std::string(text.substr(i + 1, close - i - 1));
            i = close + 1;
            while (i < n && text[i] != ',' && text[i] != '\r' && text[i] != '\n') ++i;
        } else {
            size_t start = i;
            while (i < n && text[i] != ',' && text[i] != '\r' && text[i] != '\n') ++i;
            field = Trim(text.substr(start, i - start));
        }
        fields.push_back(field);
        if (i < n && text[i] == ',') {
            ++i;
            // A comma just before a line end leaves one empty field.
            size_t j = i;
            while (j < n && blank(text[j])) ++j;
            if (j >= n || text[j] == '\r' || text[j] == '\n') {
                fields.emplace_back();
                i = j;
                eatLineEnd();
            }
        } else {
            eatLineEnd();
        }
    }
    return fields;
}

ZoneTable ParseZoneTable(std::string_view text) {
    ZoneTable t;
    auto fields = FreeFormatFields(text);
    if (!fields) {
        t.corrupt = true;
        return t;
    }
    for (size_t i = 0; i < fields->size(); i += 3) {
        const std::string& name = (*fields)[i];
        if (name.empty()) break;
        if (i + 2 >= fields->size()) {
            t.corrupt = true;
            break;
        }
        t.ZoneName.push_back(name);
        t.ZoneCode.push_back((*fields)[i + 1]);
        t.ZoneOffset.push_back((*fields)[i + 2]);
    }
    return t;
}

ZoneTable LoadZoneTable(const std::filesystem::path& file) {
    auto bytes = ReadFileBytes(file);
    if (!bytes) {
        ZoneTable t;
        t.corrupt = true;
        return t;
    }
    return ParseZoneTable(*bytes);
}

std::string ZoneListLine(const std::string& name, const std::string& code,
                         const std::string& offset) {
    std::string pad;
    if (offset.rfind("-0,", 0) == 0) {
        pad = "  ";
    } else {
        double v = Val(offset);
        if (v >= 100)
            pad = " ";
        else if (v >= 10)
            pad = "  ";
        else if (v >= 0)
            pad = "   ";
        else if (v > -10)
            pad = "  ";
        else if (v > -100)
            pad = " ";
    }
    return PadRight(name, 32) + " - " + PadLeft(code, 4) + " =" + pad + offset;
}

std::string ZoneNameOfLine(std::string_view line) {
    size_t dash = line.find('-');
    if (dash == std::string_view::npos || dash < 1) return {};
    std::string part(line.substr(0, dash - 1));
    while (!part.empty() && part.back() == ' ') part.pop_back();
    return part;
}

std::optional<Message> ApplyZone(const ZoneTable& t, std::string_view line, InputFields& in) {
    const std::string name = ZoneNameOfLine(line);
    for (size_t i = 0; i < t.ZoneName.size(); ++i) {
        if (t.ZoneName[i] != name) continue;
        if (!FieldNumber(t.ZoneOffset[i]).has_value()) return TzCorruptMessage();
        double v = Val(t.ZoneOffset[i]);
        in.optEast = v < 0;
        in.txtTZ = StrText(v);
        // A value so close to 0 that it is written with an exponent ("1E-20")
        // would be read back from the field as another zone: it is 0.
        if (in.txtTZ.find('E') != std::string::npos) in.txtTZ = v < 0 ? "-0" : StrText(0);
        return std::nullopt;
    }
    return TzCorruptMessage();
}

} // namespace kal
