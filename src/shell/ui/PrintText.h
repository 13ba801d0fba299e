// Printing pages of fixed-pitch text: one printer page for each page of
// lines, in "Courier New" at a given size. Lines are spaced at the font's
// line height, closer when that is needed for the longest page to fit the
// printable height, so that a printed page carries exactly the lines of its
// page. The print window and the report viewer print through here.
#pragma once

#include <string>
#include <vector>

class QPrinter;

namespace kal::ui {

// False when the printer could not be started.
bool PrintTextPages(QPrinter& printer, const std::vector<std::vector<std::string>>& pages,
                    int pointSize);

} // namespace kal::ui
