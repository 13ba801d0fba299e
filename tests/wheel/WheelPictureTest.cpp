// The drawn wheel as a whole, on the recording canvas with the real fonts'
// metrics: no ink of a glyph or label overlaps another's, every label
// column stays between the circles and the cusp labels outside them, for
// many real charts in both styles.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>

#include "WheelFixture.h"
#include "base/TextFile.h"
#include "wheel/Glyphs.h"

using namespace kal;
using namespace kal::test;

namespace {

double Farthest(const Box& b) {
    return std::hypot(std::max(std::fabs(b.left), std::fabs(b.right)),
                      std::max(std::fabs(b.top), std::fabs(b.bottom)));
}

double Nearest(const Box& b) {
    return std::hypot(std::max({b.left, 0.0, -b.right}), std::max({b.bottom, 0.0, -b.top}));
}

std::string Describe(const DrawCall& c) {
    std::ostringstream s;
    s << "'" << c.text << "' (code " << static_cast<int>(static_cast<unsigned char>(c.text[0]))
      << ") at " << c.x1 << "," << c.y1;
    return s.str();
}

// The charts every picture check runs over: the shipped names file and a
// few that crowd the wheel.
std::vector<std::string> Records() {
    std::vector<std::string> lines;
    auto names = ReadLines(AppDir() / "NAMES.FIL");
    if (names)
        for (const auto& l : *names)
            if (!l.empty()) lines.push_back(l);
    // Five and then eight bodies in the first house; a 60-degree latitude;
    // four intercepted signs; a southern chart.
    lines.push_back("Stellium,04 Feb 1962,6.30,A,-5.5,-077.12,28.36,");
    lines.push_back("Eight,04 Feb 1962,5.45,A,-5.5,-077.12,28.36,");
    lines.push_back("Helsinki,06 Dec 1917,12.00,P,-2,-024.56,60.10,");
    lines.push_back("Northern,18 May 1909,4.10,A,10,132.22,58.34,");
    lines.push_back("Southern,04 Dec 1966,3.42,A,11,50.24,-18.50,");
    // More records for a longer run: KALTROVA_WHEEL_RECORDS names a file of
    // names-file lines (tests/oracle/random_records.py writes such files).
    if (const char* more = std::getenv("KALTROVA_WHEEL_RECORDS"))
        if (auto extra = ReadLines(more))
            for (const auto& l : *extra)
                if (!l.empty()) lines.push_back(l);
    return lines;
}

class WheelPicture : public ::testing::TestWithParam<char> {
  protected:
    static WheelCharts* charts;
    static void SetUpTestSuite() { charts = new WheelCharts; }
    static void TearDownTestSuite() {
        delete charts;
        charts = nullptr;
    }
};
WheelCharts* WheelPicture::charts = nullptr;

TEST_P(WheelPicture, NoInkOverlapsAndColumnsStayInTheRing) {
    Options options = charts->s.options;
    options[47] = 0; // aspect symbols cross at the centre by design
    for (const std::string& record : Records()) {
        WheelChart chart = charts->Chart(record, GetParam());
        chart.HeaderLines = {};
        for (ChartStyle type : {ChartStyle::American, ChartStyle::European}) {
            WheelStyle style;
            style.type = type;
            PaintedWheel p = Paint(chart, style, options, charts->orbs(), charts->tables);
            auto texts = p.canvas.texts();
            for (const Overlap& o : FindOverlaps(texts, 0.05))
                ADD_FAILURE() << record << " (" << GetParam() << ", "
                              << (type == ChartStyle::American ? "American" : "European")
                              << "): " << Describe(*texts[o.a]) << " overlaps "
                              << Describe(*texts[o.b]);

            const WheelOptions o = WheelOptions::For(Medium::Window, options, false);
            for (const GlyphPlace& g : p.layout.places) {
                RecordingCanvas column;
                DrawLabelColumn(column, o, p.layout.steps, g,
                                chart.WheelLong[static_cast<size_t>(g.body)], BodyGlyph(g.body),
                                true, ColumnReadsOutwardFirst(g.theta, type, g.house, options[28]));
                for (const DrawCall* t : column.texts()) {
                    Box ink = InkBox(*t);
                    EXPECT_LE(Farthest(ink), OuterRadius) << record << " body " << g.body;
                    EXPECT_GE(Nearest(ink), InnerRadius) << record << " body " << g.body;
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(HouseSystems, WheelPicture,
                         ::testing::Values('P', 'R', 'K', 'C', 'O', 'B', 'T'));

} // namespace

namespace {

// The box of every drawing call: a line's ends, a circle's square, a
// text's ink.
Box Drawn(const DrawCall& c) {
    switch (c.kind) {
    case DrawCall::Line:
        return {std::min(c.x1, c.x2), std::min(c.y1, c.y2), std::max(c.x1, c.x2),
                std::max(c.y1, c.y2)};
    case DrawCall::Circle:
        return {c.x1 - c.radius, c.y1 - c.radius, c.x1 + c.radius, c.y1 + c.radius};
    case DrawCall::Text:
        return InkBox(c);
    default:
        return {};
    }
}

} // namespace

TEST(WheelFit, EverythingDrawnStaysInsideTheAreaWhateverItsShape) {
    WheelCharts charts;
    struct Area {
        const char* name;
        WheelView nominal;
    };
    const Area areas[] = {
        {"square", WindowView(600, 600)},
        {"a little wider than tall", WindowView(1000, 955)},
        // The half-page print: the window maximised on an 800 by 800 screen,
        // less its menu bar.
        {"half page", WindowView(800, 770)},
        {"wide", WindowView(1024, 768)},
        {"very wide", WindowView(1200, 400)},
        {"tall", WindowView(500, 800)},
        {"narrow", WindowView(300, 900)},
        {"printed American", PrinterView(ChartStyle::American)},
        {"printed European", PrinterView(ChartStyle::European)},
    };
    std::vector<std::string> records = Records();
    records.resize(std::min<size_t>(records.size(), 12));
    records.push_back("Helsinki,06 Dec 1917,12.00,P,-2,-024.56,60.10,");
    for (const std::string& record : records) {
        WheelChart chart = charts.Chart(record, 'K');
        for (ChartStyle type : {ChartStyle::American, ChartStyle::European}) {
            WheelStyle style;
            style.type = type;
            PrintedPage page{std::vector<std::string>{"A. Astrologer", "12 Any Street"}};
            WheelPaintInput in{chart, style, charts.s.options, charts.orbs(), charts.tables, &page};
            for (const Area& a : areas) {
                SCOPED_TRACE(record + ", " + a.name +
                             (type == ChartStyle::American ? ", American" : ", European"));
                RecordingCanvas measurer;
                const WheelView v = FitView(measurer, a.nominal, in);
                // Widened about the centre with the area's shape: the wheel
                // is never drawn larger than the window's scale asks.
                EXPECT_GE(v.R, a.nominal.R);
                EXPECT_NEAR(v.width() / v.height(), a.nominal.width() / a.nominal.height(), 1e-9);
                EXPECT_NEAR(v.left / a.nominal.left, v.R / a.nominal.R, 1e-9);
                EXPECT_NEAR(v.bottom / a.nominal.bottom, v.R / a.nominal.R, 1e-9);

                RecordingCanvas c;
                PaintWheel(c, v, in);
                double reach = 0; // the largest share of an edge's distance reached
                for (const DrawCall& call : c.calls()) {
                    Box b = Drawn(call);
                    if (call.kind == DrawCall::Fill || (call.kind == DrawCall::Text && b.empty()))
                        continue;
                    EXPECT_TRUE(b.left >= v.left && b.right <= v.right && b.bottom >= v.bottom &&
                                b.top <= v.top)
                        << "'" << call.text << "' kind " << call.kind << " spans " << b.left << ".."
                        << b.right << " x " << b.bottom << ".." << b.top;
                    reach = std::max({reach, b.right / v.right, b.left / v.left, b.top / v.top,
                                      b.bottom / v.bottom});
                }
                // A widened view is no wider than the drawing needs.
                if (v.R > a.nominal.R) {
                    EXPECT_GT(reach, 0.95);
                }
            }
        }
    }
}
