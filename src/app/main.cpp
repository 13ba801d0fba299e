// kaltrova: the desktop program.
#include <QApplication>
#include <QMessageBox>

#include <cstdlib>

#include "app/Windows.h"
#include "shell/Session.h"
#include "shell/Startup.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Kaltrova.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Kaltrova");
    QApplication::setQuitOnLastWindowClosed(false);

    const auto exeDir = kal::ExecutableDir();
    auto programDir =
        kal::ResolveAppPath(exeDir, std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
    if (!programDir) {
        QMessageBox::critical(
            nullptr, "Error!",
            "The program's data files (NATAL.ORB and the others) were not found beside "
            "the program.");
        return 1;
    }

    kal::Session session;
    kal::ui::AppContext ctx(session);
    kal::ui::RegisterProgramWindows(ctx);
    auto* main = new kal::ui::Kaltrova(ctx);
    main->setAttribute(Qt::WA_DeleteOnClose, false);
    kal::ui::Kaltrova::StartupChoices choices;
    choices.shippedDir = kal::ShippedDataDir(exeDir).value_or(std::filesystem::path());
    // Files of a first start that could not be copied into the user's folder.
    ctx.showMessages(programDir->messages);
    main->Form_Load(programDir->path, choices);
    int rc = app.exec();
    if (!main->isShutDown()) main->mnuFileExit_Click();
    delete main;
    return rc;
}
