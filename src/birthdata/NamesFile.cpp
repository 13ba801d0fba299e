#include "birthdata/NamesFile.h"

#include "base/TextFile.h"

namespace kal {

Message NamesFileLineError() {
    return {"You have an error in the current names file. You need to check and see if you have "
            "entered the data correctly and in the proper amount. Please correct the data by "
            "clicking on the Edit this List command button in the Names window and edit the "
            "incorrect data.",
            "Error!", Icon::Critical};
}

NamesList LoadNamesFile(const std::filesystem::path& file) {
    NamesList list;
    list.opened = ReadListFile(file, ParseRecordLine, NamesFileLineError(), list.records,
                               list.errors, &list.encoding, &list.lines);
    return list;
}

int FindRecord(const std::vector<BirthRecord>& records, const std::string& name) {
    for (size_t i = 0; i < records.size(); ++i)
        if (records[i].RecName == name) return static_cast<int>(i);
    return -1;
}

ReloadSelection LockedReload(bool locked, bool keepInput, int lockedIndex, int count) {
    ReloadSelection r;
    r.lockedIndex = lockedIndex;
    if (!locked || keepInput) return r;
    if (r.lockedIndex >= count) r.lockedIndex = count - 1;
    r.topRow = r.lockedIndex < 12 ? 0 : r.lockedIndex - 12;
    if (r.lockedIndex < 0) r.lockedIndex = 0;
    r.index = r.lockedIndex;
    r.select = count > 0;
    return r;
}

} // namespace kal
