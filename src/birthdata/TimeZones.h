// The time-zone table TZ.DAT: records of name, code and offset in hours
// (West of Greenwich positive), read as free-format fields separated by
// commas or line ends, strings optionally in double quotes. The list shows
// one aligned line per zone; a pick fills the input window's zone and E/W.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Message.h"
#include "chart/InputFields.h"

namespace kal {

struct ZoneTable {
    std::vector<std::string> ZoneName, ZoneCode, ZoneOffset; // file order
    bool corrupt = false; // reading stopped at a record that is not whole
};

Message TzCorruptMessage();

// Splits free-format text into its fields: separated by commas or line
// ends, blanks around an unquoted field dropped, a quoted field taken up to
// its closing quote. Nothing when a quote is not closed.
std::optional<std::vector<std::string>> FreeFormatFields(std::string_view text);

// Reads the zones from the text of TZ.DAT; stops at an empty name.
ZoneTable ParseZoneTable(std::string_view text);
// Reads TZ.DAT; a missing file is corrupt.
ZoneTable LoadZoneTable(const std::filesystem::path& file);

// The list line of a zone: the name padded to 32 characters, " - ", the
// code right-aligned in 4, " =", and the offset right-aligned.
std::string ZoneListLine(const std::string& name, const std::string& code,
                         const std::string& offset);

// The name part of a list line: the text up to the blank before its first
// "-", trailing blanks removed.
std::string ZoneNameOfLine(std::string_view line);

// Applies the zone of a picked list line: zone field and E/W. The corrupt
// message when the line's name is not in the table or its offset is not a
// number.
std::optional<Message> ApplyZone(const ZoneTable& t, std::string_view line, InputFields& in);

} // namespace kal
