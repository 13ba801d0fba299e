// HCDATA.DAT and RADIUS.DAT as a user may leave them: the same bytes as both
// tables, read as start-up reads them, then the example chart's wheel
// painted with them in both styles, in the window and on the printed page.
#include "FuzzSupport.h"
#include "wheel/RecordingCanvas.h"
#include "wheel/WheelPaint.h"
#include "wheel/WheelTables.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Session& s = fuzz::FuzzSession();
    fuzz::WriteInput("HCDATA.DAT", data, size);
    fuzz::WriteInput("RADIUS.DAT", data, size);
    WheelTables tables;
    LoadWheelTables(fuzz::Dir(), tables);

    const WheelChart wheel =
        WheelChartOf(s.calc.chart, s.listing.HeaderLines, s.listing.HeaderLines2);
    for (ChartStyle type : {ChartStyle::American, ChartStyle::European}) {
        WheelStyle style;
        style.type = type;
        const WheelPaintInput in{wheel, style, s.options, s.listing.orbs.NatalOrbs, tables};
        RecordingCanvas window, printer;
        PaintWheel(window, WindowView(500, 450), in);
        PaintWheel(printer, PrinterView(type), in);
    }
    return 0;
}
