#include "birthdata/ui/Paths.h"

#include "base/TextFile.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

std::filesystem::path NamesFile(AppContext& ctx) {
    Session& s = ctx.session();
    if (s.paths.NamesFilePath.empty())
        s.paths.NamesFilePath = FindFile(s.paths.AppPath, "NAMES.FIL");
    return s.paths.NamesFilePath;
}

std::filesystem::path CitiesFile(AppContext& ctx) {
    Session& s = ctx.session();
    if (s.paths.CitiesFilePath.empty())
        s.paths.CitiesFilePath = FindFile(s.paths.AppPath, "GA_MA.LL");
    return s.paths.CitiesFilePath;
}

QString ListFileLabel(const std::filesystem::path& file) {
    return QString::fromStdString(file.filename().string()).toUpper();
}

} // namespace kal::ui
