// What the data window does with its lines apart from showing them: saving
// with form-feed paging, the proposed file name, the print file handed to
// the print window, its font class and its pagination, the font steps, and
// the window's fixed messages.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/Message.h"
#include "base/Pages.h"
#include "base/SafeWrite.h"

namespace kal {

struct OutputBuffer;

// How Save pages the data: a form-feed line after every `linesPerPage`
// lines (option 45), restarted by a form-feed line in the data.
PageLayout DataSaveLayout(float linesPerPage);
// The bytes Save writes for `lines` (AllLines with its spare empty element):
// each line with CR LF; after every `linesPerPage` lines (option 45) a line
// holding a form feed; a form-feed line in the data restarts the count; when
// the data held no form feed, one form-feed line ends the file. A line that
// carries its own line breaks keeps them, as CR LF.
std::string SavedDataBytes(const std::vector<std::string>& lines, float linesPerPage);
WriteResult SaveDataFile(const std::filesystem::path& file, const std::vector<std::string>& lines,
                         float linesPerPage);

// The name Save As proposes for a chart's name: the part before a blank at
// position 1..8, otherwise the first eight characters, then ".txt".
std::string ProposedFileName(std::string_view chartName);

// The file handed to the print window.
std::filesystem::path PrintFilePath(const std::filesystem::path& appPath);
WriteResult WritePrintFile(const std::filesystem::path& appPath,
                           const std::vector<std::string>& lines);

// The print window's widest-line class: 0, or 1 / 2 when a line is longer
// than option 117 / also longer than option 118; the last such line decides.
int PrintWidthClass(const std::vector<std::string>& lines, float opt117, float opt118);
// The printer font size of a class: 12, 10 or 8 points.
int PrintFontSize(int widthClass);

// The printed pages: a page ends after `linesPerPage` lines (option 30) or at
// a form-feed line (which is not printed). A trailing empty page is dropped.
std::vector<std::vector<std::string>> PrintPages(const std::vector<std::string>& lines,
                                                 float linesPerPage);

// Font steps of the data window: the step is WheelScale / 2. Increase works
// below 12 points, Decrease above 8; each returns whether the size changed.
double FontStep(double wheelScale);
bool IncreaseFontSize(double& size, double wheelScale);
bool DecreaseFontSize(double& size, double wheelScale);
inline bool CanIncreaseFont(double size) {
    return size < 12;
}
inline bool CanDecreaseFont(double size) {
    return size > 8;
}

// The data window's messages.
Message NoDataToWriteMessage();
Message NoDataToPrintMessage();
Message AllDataClearedMessage();
Message CourierMissingMessage();

} // namespace kal
