#include "wheel/ui/CWAspect.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "shell/ui/AppContext.h"
#include "wheel/AspectText.h"
#include "wheel/qt/QtCanvas.h"

namespace kal::ui {

CWAspect::CWAspect(AppContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
    setObjectName("CWAspect");
    setWindowTitle("Aspects");
    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName("Text1");
    Text1->setReadOnly(true);
    // The text box fills the window at every size.
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Text1);
    resize(220, 420);
    Form_Load();
}

void CWAspect::Form_Load() {
    WaitCursor wait;
    Text1->clear();
    Text1->setFont(QFont(GlyphFamily, 12));
    Session& s = ctx_.session();
    if (auto m = LoadWheelOrbs(s.paths.OrbFilePath, s.listing.orbs)) ctx_.showMessage(*m, this);
    QStringList lines;
    for (const std::string& line :
         AspectWindowLines(s.calc.chart.PlanetLong, s.listing.orbs.WheelOrbs))
        lines << WheelQString(line, Face::Glyph);
    Text1->setPlainText(lines.join('\n') + '\n');
}

} // namespace kal::ui
