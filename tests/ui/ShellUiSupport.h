// Helpers of the window tests: a scratch program directory, the started
// main window without waiting for the title window, recorded dialogs,
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
#include "app/Windows.h"
#include "birthdata/Record.h"
#include "shell/Session.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Kaltrova.h"

namespace kal::test {

// The dialogs of a test: every message box is recorded instead of shown;
// questions, file choices, Save As, the printer and the new names file are
// answered by the functions a test sets (by default: No, cancelled).
class RecordingDialogs : public ui::Dialogs {
  public:
    std::vector<Message> messages;
    bool saw(const std::string& text) const {
        for (const auto& m : messages)
            if (m.text == text) return true;
        return false;
    }

    std::function<QMessageBox::StandardButton(const Message&)> onQuestion;
    std::function<QString(const QString& pattern)> onChooseFile;
    QStringList chosenFrom; // the file each file selection opened on
    std::function<QString(const QString& folder, const QString& proposed)> onSaveAs;
    std::function<bool(QPrinter&)> onPrinter;
    std::function<QString(const QString& folder)> onNewNamesFile;

    void message(const Message& m, QWidget*) override { messages.push_back(m); }
    QMessageBox::StandardButton question(const Message& m, QMessageBox::StandardButtons,
                                         QWidget*) override {
        return onQuestion ? onQuestion(m) : QMessageBox::No;
    }
    QString chooseFile(ui::AppContext&, const QString& pattern, const QString& current,
                       QWidget*) override {
        chosenFrom << current;
        return onChooseFile ? onChooseFile(pattern) : QString();
    }
    QString saveAs(const QString& folder, const QString& proposed, QWidget*) override {
        return onSaveAs ? onSaveAs(folder, proposed) : QString();
    }
    bool setUpPrinter(QPrinter& printer, const QString&, QWidget*) override {
        return onPrinter ? onPrinter(printer) : false;
    }
    QString newNamesFile(const QString& folder, QWidget*) override {
        return onNewNamesFile ? onNewNamesFile(folder) : QString();
    }
};

// A context with every window registered and recording dialogs.
inline std::unique_ptr<ui::AppContext> MakeContext(Session& session, RecordingDialogs*& dialogs) {
    auto ctx = std::make_unique<ui::AppContext>(session);
    auto d = std::make_unique<RecordingDialogs>();
    dialogs = d.get();
    ctx->setDialogs(std::move(d));
    ui::RegisterProgramWindows(*ctx);
    return ctx;
}

// A started program on a scratch program directory.
struct StartedProgram {
    ScratchAppDir dir;
    Session session;
    RecordingDialogs* dialogs = nullptr;
    std::unique_ptr<ui::AppContext> ctx;
    std::unique_ptr<ui::Kaltrova> main;

    // `prepare` may change the program directory before start-up.
    explicit StartedProgram(const std::function<void(const ScratchAppDir&)>& prepare = {},
                            int screenWidth = 1280) {
        // Start from the defaults, whatever the built program directory
        // kept from a run of the real program.
        std::filesystem::remove(dir.path() / "Kaltrova.INI");
        if (prepare) prepare(dir);
        ctx = MakeContext(session, dialogs);
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
        InputFields in;
        if (TransferRecord(*rec, session.regional.DateOrder, in)) return false;
        return ctx->calculate(in);
    }
};

inline void SaveScreenshot(QWidget* w, const QString& name) {
    QDir().mkpath(KALTROVA_SCREENSHOTS);
    w->grab().save(QString(KALTROVA_SCREENSHOTS) + "/" + name + ".png");
}

inline const char* kExampleRecord = "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org";
inline const char* kMaryRecord = "Mary Jane Smith,3 Feb 1971,4.05,P,5,71.04,42.21,mary@example.org";

} // namespace kal::test
