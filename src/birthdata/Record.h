// Birth records as a names file holds them, one per line:
//   name,dd mmm yyyy,hh.mm,A|P,zone,long,lat,e-mail
// and the transfer of a record into the input fields.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Dates.h"
#include "base/Message.h"
#include "chart/InputFields.h"

namespace kal {

struct BirthRecord {
    std::string RecName, RecDate, RecTime, RecAmPm, RecTZ, RecLong, RecLat, RecEmail;
};

// Splits one names-file line at its commas (leading blanks of each field
// skipped). Nothing when the line does not hold a whole record: fewer than
// seven fields (the e-mail may be left off) or more than eight.
std::optional<BirthRecord> ParseRecordLine(std::string_view line);

// The line a record is stored as (without line end).
std::string RecordLine(const BirthRecord& r);

// The error shown when a picked record's fields cannot be converted.
Message RecordFormatError();

// Moves a record into the input fields as a pick in the names list does.
// With date order 2 the stored date is first rearranged to "yyyy Mmm dd"
// (and written back into the record). A year of two digits is read as a
// system date reader does (00-29 the 2000s, 30-99 the 1900s). On a field
// that cannot be converted (a number with more digits than a field can show
// among them) the format error is returned and the remaining fields are
// left as they were.
std::optional<Message> TransferRecord(BirthRecord& rec, int dateOrder, InputFields& in);

} // namespace kal
