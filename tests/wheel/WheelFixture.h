// Real charts for the wheel tests, calculated from names-file records in a
// scratch program directory, and the wheel painted on a recording canvas
// with the shipped options, orb file and label tables.
#pragma once

#include <string>
#include <vector>

#include "TestSupport.h"
#include "birthdata/Record.h"
#include "shell/Session.h"
#include "wheel/RecordingCanvas.h"
#include "wheel/WheelPaint.h"

namespace kal::test {

class WheelCharts {
  public:
    WheelCharts() {
        s.Open(dir.path());
        LoadWheelTables(s.paths.AppPath, tables);
        LoadWheelOrbs(s.paths.OrbFilePath, s.listing.orbs);
    }
    ~WheelCharts() { s.Close(); }

    // Calculates the chart of a names-file record with a house system.
    WheelChart Chart(const std::string& line, char houses = 'P') {
        s.calc.HouseSystem = houses;
        auto rec = ParseRecordLine(line);
        InputFields in;
        if (!rec || TransferRecord(*rec, s.regional.DateOrder, in)) return {};
        if (!s.Calculate(in).calculated) return {};
        return WheelChartOf(s.calc.chart, s.listing.HeaderLines, s.listing.HeaderLines2);
    }
    const OrbTable& orbs() const { return s.listing.orbs.WheelOrbs; }

    Session s;
    WheelTables tables;

  private:
    ScratchAppDir dir;
};

struct PaintedWheel {
    RecordingCanvas canvas;
    WheelLayout layout;
};

// Paints a wheel on a recording canvas.
inline PaintedWheel Paint(const WheelChart& chart, const WheelStyle& style, const Options& options,
                          const OrbTable& orbs, const WheelTables& tables,
                          const WheelView& view = WindowView(480, 450)) {
    PaintedWheel p;
    WheelPaintInput in{chart, style, options, orbs, tables, nullptr};
    p.layout = PaintWheel(p.canvas, view, in);
    return p;
}

} // namespace kal::test
