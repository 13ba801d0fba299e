#include "birthdata/RecordWriter.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "base/SafeWrite.h"
#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

namespace fs = std::filesystem;

namespace {

// A formatted number always with a decimal point, whatever the pattern code
// was given.
std::string PointNumber(double v, std::string_view pattern) {
    std::string s = FormatNumber(v, pattern);
    std::replace(s.begin(), s.end(), ',', '.');
    return s;
}

bool SameNameNoCase(const std::string& a, const std::string& b) {
    return Upper(a) == Upper(b);
}

} // namespace

Message CommaInNameMessage() {
    return {"You cannot have a comma in the name. Please remove the comma and try again.",
            "Warning!", Icon::Critical};
}

Message DuplicateQuestion(const BirthRecord& r) {
    const std::string nl = "\r\n";
    std::string text = nl +
                       "There is already a name on file matching your current name with the "
                       "following associated data: " +
                       nl + "Date =  " + r.RecDate + nl + "Time =  " + r.RecTime + " " + r.RecAmPm +
                       nl + "Time zone =  " + r.RecTZ + nl + "Longitude =  " + r.RecLong + nl +
                       "Latitude =  " + r.RecLat + nl + "E-mail address =  " + r.RecEmail + nl +
                       nl + "Do you want to replace it?" + nl + nl +
                       "Answering 'NO' will append the current name and data to file, not "
                       "replace the existing entry.";
    return {text, r.RecName + " already exists", Icon::Question};
}

Message SaveFailedMessage(const fs::path& target, const std::string& reason) {
    return {"The record could not be saved: " + reason + ". The file " +
                target.filename().string() + " has not been changed.",
            "Error!", Icon::Critical};
}

Message SaveDateMessage() {
    return {"The birth date is not a valid date. Please correct the month, day and year.",
            "Warning!", Icon::Critical};
}

std::optional<BirthRecord> RecordFromInput(const InputFields& in, int dateOrder) {
    const std::string m = Trim(in.txtMonth), d = Trim(in.txtDay), y = Trim(in.txtYear);
    std::string joined;
    switch (dateOrder) {
    case 1:
        joined = d + "/" + m + "/" + y;
        break;
    case 2:
        joined = y + "/" + m + "/" + d;
        break;
    default:
        joined = m + "/" + d + "/" + y;
        break;
    }
    auto date = ParseDate(joined, dateOrder);
    if (!date) return std::nullopt;

    BirthRecord r;
    r.RecName = in.txtName;
    r.RecDate = FormatDateDMY(*date);
    r.RecTime = PointNumber(Val(in.txtBirthHour) + Val(in.txtBirthMinute) / 100, "##.#0");
    r.RecAmPm = in.optAM ? "A" : "P";
    r.RecTZ = Trim(in.txtTZ);
    double lon = Val(in.txtLongDeg) + Val(in.txtLongMin) / 100;
    if (in.optEast) lon = -lon;
    r.RecLong = PointNumber(lon, "#00#.#0");
    double lat = Val(in.txtLatDeg) + Val(in.txtLatMin) / 100;
    if (in.optSouth) lat = -lat;
    r.RecLat = PointNumber(lat, "#0#.#0");
    r.RecEmail = in.txtEmail;
    return r;
}

fs::path BackupPath(const fs::path& target) {
    std::string s = target.string();
    if (s.size() >= 3) s.resize(s.size() - 3);
    return fs::path(s + "OLD");
}

SaveResult SaveRecord(const BirthRecord& rec, const fs::path& target, const fs::path& tempFile,
                      const ReplaceQuestion& replace) {
    SaveResult result;
    auto fail = [&](const std::string& reason) {
        result.messages.push_back(SaveFailedMessage(target, reason));
        return result;
    };

    std::error_code ec;
    const bool targetExists = fs::exists(target, ec);
    std::vector<std::string> lines;
    // The file is written back in the encoding it has (a names file of an
    // older Windows copy stays Windows-1252).
    TextEncoding encoding = TextEncoding::Utf8;
    if (targetExists) {
        auto old = ReadTextLines(target, &encoding);
        if (!old) return fail("the names file cannot be read");
        for (const auto& line : *old) {
            if (Trim(line).empty()) continue;
            auto r = ParseRecordLine(line);
            if (!r) {
                // A line that is not a record is kept as it stands.
                lines.push_back(line);
                continue;
            }
            if (SameNameNoCase(r->RecName, rec.RecName) && replace && replace(*r)) continue;
            lines.push_back(RecordLine(*r));
        }
    }
    lines.push_back(RecordLine(rec));
    std::string text;
    for (const auto& l : lines) text += l + "\r\n";
    const std::string bytes = EncodeTextOrUtf8(text, encoding);

    // The new content is complete and on the disk in the temporary file
    // before the names file is touched.
    if (WriteResult w = WriteFileFlushed(tempFile, bytes); !w)
        return fail("the temporary file " + tempFile.filename().string() + " cannot be written (" +
                    w.reason + ")");

    // The backup is the names file under a second name rather than the file
    // moved away: the names file stays in its place until the new one takes
    // its name in one step, so a crash or a power cut between the steps never
    // leaves the folder without it. Afterwards the backup holds the old file
    // all the same.
    const fs::path backup = BackupPath(target);
    // A names file whose own name ends in OLD is its own backup name: it
    // keeps no backup rather than losing itself to one.
    if (targetExists && !fs::equivalent(target, backup, ec)) {
        if (WriteResult w = LinkFile(target, backup); !w) {
            fs::remove(tempFile, ec);
            return fail("the backup " + backup.filename().string() + " cannot be made (" +
                        w.reason + ")");
        }
    }
    WriteResult moved = RenameFile(tempFile, target);
    // The temporary file lies in the program directory; a names file on
    // another disk gets a copy, itself written through a temporary file.
    if (!moved && moved.error == EXDEV) moved = ReplaceFileWithCopy(tempFile, target);
    fs::remove(tempFile, ec);
    if (!moved) return fail("the names file cannot be replaced (" + moved.reason + ")");
    result.saved = true;
    return result;
}

SaveResult SaveInputRecord(const InputFields& in, int dateOrder, const fs::path& appPath,
                           const fs::path& target, const ReplaceQuestion& replace) {
    SaveResult result;
    if (in.txtName.find(',') != std::string::npos) {
        result.messages.push_back(CommaInNameMessage());
        return result;
    }
    auto rec = RecordFromInput(in, dateOrder);
    if (!rec) {
        result.messages.push_back(SaveDateMessage());
        return result;
    }
    return SaveRecord(*rec, target, appPath / "wfyert.hyq", replace);
}

std::string NewNamesFileContent() {
    return "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org\r\n";
}

WriteResult WriteNewNamesFile(const fs::path& file) {
    return ReplaceFile(file, NewNamesFileContent());
}

} // namespace kal
