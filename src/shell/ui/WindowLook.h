// What several windows share in their look: the fixed-pitch face of text
// boxes and print-outs, and the sunken three-dimensional frame drawn on a
// window's surface just outside a text box or a grid.
#pragma once

#include <QFont>

class QWidget;

namespace kal::ui {

// "Courier New" (met by a free font of the same metrics), at `pointSize`
// when it is above 0.
QFont CourierFont(int pointSize = 0);

// Draws the frame round `box` (a child of `window`) on the window's surface;
// call it from the window's paint event.
void DrawSunkenFrame(QWidget* window, const QWidget* box);

} // namespace kal::ui
