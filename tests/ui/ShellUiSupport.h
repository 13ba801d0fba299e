// Helpers of the window tests: a scratch program directory, the started
// main window without waiting for the title window, recorded dialogs,
// menu items by objectName and screenshots.
#pragma once

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

#include "TestSupport.h"
#include "app/Windows.h"
#include "base/OutputBuffer.h"
#include "base/TextFile.h"
#include "birthdata/Record.h"
#include "shell/Session.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/Kaltrova.h"
#include "shell/ui/OutputD1.h"

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
    template <class T = QWidget> T* win(ui::WindowName name) const {
        return qobject_cast<T*>(ctx->window(name));
    }
    // The text the data window shows, empty without one.
    QString dataText() const {
        auto* data = win<ui::OutputD1>(ui::win::OutputD1);
        return data ? data->RichText1->toPlainText() : QString();
    }
    std::string lastPage() const { return ReadFileBytes(LastPagePath(dir.path())).value_or(""); }
    std::string lastMessage() const {
        return dialogs->messages.empty() ? std::string() : dialogs->messages.back().text;
    }
    // Triggers a menu item of the main window by its objectName.
    void trigger(const char* name) const {
        QVERIFY2(action(name), name);
        action(name)->trigger();
    }

    // Moves a names-file line into the input fields and calculates as OK does.
    bool calculate(const std::string& line) {
        auto in = FieldsOfRecord(line, session.regional.DateOrder);
        return in && ctx->calculate(*in);
    }
};

// Clicks the push button `name` of a window.
inline void Click(QWidget* w, const char* name) {
    auto* b = w->findChild<QPushButton*>(name);
    QVERIFY2(b, name);
    b->click();
}

inline QStringList ListTexts(QWidget* w, const char* list) {
    QStringList out;
    auto* l = w->findChild<QListWidget*>(list);
    for (int i = 0; l && i < l->count(); ++i) out << l->item(i)->text();
    return out;
}

// Picks a list entry the way a mouse click does.
inline void Pick(QWidget* w, const char* list, const QString& text) {
    auto* l = w->findChild<QListWidget*>(list);
    QVERIFY(l);
    auto items = l->findItems(text, Qt::MatchExactly);
    QVERIFY2(!items.isEmpty(), qPrintable(text));
    l->setCurrentItem(items.first());
    emit l->itemClicked(items.first());
}

// The text box `txtContent` of the editor windows.
inline QPlainTextEdit* Content(QWidget* w) {
    return w->findChild<QPlainTextEdit*>("txtContent");
}

inline void SaveScreenshot(QWidget* w, const QString& name) {
    QDir().mkpath(KALTROVA_SCREENSHOTS);
    w->grab().save(QString(KALTROVA_SCREENSHOTS) + "/" + name + ".png");
}

inline const char* kExampleRecord = "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org";
inline const char* kMaryRecord = "Mary Jane Smith,3 Feb 1971,4.05,P,5,71.04,42.21,mary@example.org";

} // namespace kal::test
