// kaltrova: the desktop program.
#include <QApplication>
#include <QMessageBox>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "shell/Session.h"
#include "shell/Startup.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Kaltrova.h"

namespace {

std::filesystem::path ExecutableDir() {
    std::error_code ec;
    std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::filesystem::current_path() : exe.parent_path();
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Kaltrova");
    QApplication::setQuitOnLastWindowClosed(false);

    auto appPath =
        kal::ResolveAppPath(ExecutableDir(), std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
    if (!appPath) {
        QMessageBox::critical(
            nullptr, "Error!",
            "The program's data files (NATAL.ORB and the others) were not found beside "
            "the program.");
        return 1;
    }

    kal::Session session;
    kal::ui::AppContext ctx(session);
    auto* main = new kal::ui::Kaltrova(ctx);
    main->setAttribute(Qt::WA_DeleteOnClose, false);
    main->Form_Load(*appPath);
    int rc = app.exec();
    if (!main->isShutDown()) main->mnuFileExit_Click();
    delete main;
    return rc;
}
