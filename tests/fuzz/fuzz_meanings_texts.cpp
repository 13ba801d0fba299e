// The texts of the meanings window and the keyword lessons as a user may
// leave them. The first five bytes choose the sign, house, planets and
// aspect; the rest is written over the file of each lookup and of the
// lessons of that sign, house and planet, and each is shown.
#include <variant>

#include "FuzzSupport.h"
#include "base/Passages.h"
#include "browsers/Keywords.h"
#include "browsers/Meanings.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 5) return 0;
    BrowserSelections sel;
    sel.SelSign = static_cast<short>(data[0] % SignCaptions.size());
    sel.SelHouse = static_cast<short>(data[1] % HouseCaptions.size());
    sel.SelPlanet = static_cast<short>(data[2] % PlanetCaptions.size());
    sel.SelPlanet2 = static_cast<short>(data[3] % PlanetCaptions.size());
    sel.SelAspect = static_cast<short>(data[4] % AspectCaptions.size());
    data += 5;
    size -= 5;

    const std::filesystem::path& dir = fuzz::Dir();
    auto write = [&](std::string_view name) {
        fuzz::WriteInput(FindTextFile(dir, name).filename().string(), data, size);
    };
    OutputBuffer out;
    for (const LookupResult& r : {PlanetInSignLookup(sel), PlanetInHouseLookup(sel),
                                  LookupResult{RisingSignLookup(sel)}, AspectLookup(sel)}) {
        const auto* lookup = std::get_if<TextLookup>(&r);
        if (!lookup) continue;
        write(lookup->file);
        fuzz::Check(ShowLookup(out, dir, sel, *lookup).empty(), "a text that exists is shown");
    }
    for (const std::string& lesson :
         {SignLessonFile(sel.SelSign), HouseLessonFile(sel.SelHouse),
          PlanetLessonFile(static_cast<short>(sel.SelPlanet % LessonPlanetCaptions.size()))}) {
        write(lesson);
        fuzz::Check(ShowLesson(out, dir, sel, lesson).empty(), "a lesson that exists is shown");
    }
    return 0;
}
