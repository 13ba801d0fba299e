#include "birthdata/ui/Paths.h"

#include "shell/TextFile.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

std::filesystem::path NamesFile(AppContext& ctx) {
    Session& s = ctx.session();
    if (s.NamesFilePath.empty()) s.NamesFilePath = FindFile(s.AppPath, "NAMES.FIL");
    return s.NamesFilePath;
}

std::filesystem::path CitiesFile(AppContext& ctx) {
    Session& s = ctx.session();
    if (s.CitiesFilePath.empty()) s.CitiesFilePath = FindFile(s.AppPath, "GA_MA.LL");
    return s.CitiesFilePath;
}

QString ListFileLabel(const std::filesystem::path& file) {
    return QString::fromStdString(file.filename().string()).toUpper();
}

} // namespace kal::ui
