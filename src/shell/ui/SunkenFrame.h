// The sunken three-dimensional frame some windows draw on their own surface
// just outside a text box or a grid.
#pragma once

class QWidget;

namespace kal::ui {

// Draws the frame round `box` (a child of `window`) on the window's surface;
// call it from the window's paint event.
void DrawSunkenFrame(QWidget* window, const QWidget* box);

} // namespace kal::ui
