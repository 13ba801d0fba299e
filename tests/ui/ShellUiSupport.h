// Helpers of the window tests: a scratch program directory, the started
// main window without waiting for the title window, recorded message boxes,
// menu items by objectName and screenshots.
#pragma once

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QTest>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

#include "TestSupport.h"
#include "birthdata/Record.h"
#include "shell/Session.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Kaltrova.h"

namespace kal::test {

// Records every message box instead of showing it.
class MessageRecorder {
  public:
    MessageRecorder() {
        ui::AppContext::setMessageSink(
            [this](const Message& m, QWidget*) { messages.push_back(m); });
    }
    ~MessageRecorder() { ui::AppContext::setMessageSink({}); }
    std::vector<Message> messages;
    bool saw(const std::string& text) const {
        for (const auto& m : messages)
            if (m.text == text) return true;
        return false;
    }
};

// A started program on a scratch program directory.
struct StartedProgram {
    ScratchAppDir dir;
    MessageRecorder recorder;
    Session session;
    std::unique_ptr<ui::AppContext> ctx;
    std::unique_ptr<ui::Kaltrova> main;

    // `prepare` may change the program directory before start-up.
    explicit StartedProgram(const std::function<void(const ScratchAppDir&)>& prepare = {},
                            int screenWidth = 1280) {
        // Start from the defaults, whatever the built program directory
        // kept from a run of the real program.
        std::filesystem::remove(dir.path() / "Kaltrova.INI");
        if (prepare) prepare(dir);
        ctx = std::make_unique<ui::AppContext>(session);
        main = std::make_unique<ui::Kaltrova>(*ctx);
        ui::Kaltrova::StartupChoices choices;
        choices.waitForTitle = false;
        choices.screenWidthPx = screenWidth;
        main->Form_Load(dir.path(), choices);
    }
    ~StartedProgram() {
        if (!main->isShutDown()) main->mnuFileExit_Click();
        main.reset();
        ctx.reset();
    }

    QAction* action(const char* name) const { return main->findChild<QAction*>(name); }
    // Triggers a menu item of the main window by its objectName.
    void trigger(const char* name) const {
        QVERIFY2(action(name), name);
        action(name)->trigger();
    }

    // Moves a names-file line into the input fields and calculates as OK does.
    bool calculate(const std::string& line) {
        auto rec = ParseRecordLine(line);
        if (!rec) return false;
        if (TransferRecord(*rec, session.DateOrder, session.input)) return false;
        return ctx->calcChart();
    }
};

inline void SaveScreenshot(QWidget* w, const QString& name) {
    QDir().mkpath(KALTROVA_SCREENSHOTS);
    w->grab().save(QString(KALTROVA_SCREENSHOTS) + "/" + name + ".png");
}

inline const char* kExampleRecord = "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org";
inline const char* kMaryRecord = "Mary Jane Smith,3 Feb 1971,4.05,P,5,71.04,42.21,mary@example.org";

} // namespace kal::test
