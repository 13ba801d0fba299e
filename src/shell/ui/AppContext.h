// The object every window gets: the Session, the one way to show a message
// box, the data page, the chart calculation with the window actions around
// it, and the program's windows by name (loaded on first use, hidden,
// unloaded). Windows never reach each other directly; they go through here.
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <map>
#include <vector>

#include "shell/Message.h"
#include "shell/Session.h"

namespace kal::ui {

class AppContext : public QObject {
    Q_OBJECT

  public:
    // Builds a window; `parent` is the main window (or null before it
    // exists). The window is made a top-level window of its own.
    using WindowFactory = std::function<QWidget*(AppContext&, QWidget* parent)>;
    // Shows a message box. Tests replace it so that nothing blocks.
    using MessageSink = std::function<void(const Message&, QWidget* parent)>;
    // Asks a question; returns the button pressed.
    using QuestionSink = std::function<QMessageBox::StandardButton(
        const Message&, QMessageBox::StandardButtons buttons, QWidget* parent)>;
    // Runs the file-selection window with a pattern ("*.FIL") and returns
    // SelectedFile (empty when cancelled).
    using FileSink = std::function<QString(const QString& pattern, QWidget* parent)>;

    explicit AppContext(Session& session, QObject* parent = nullptr);
    ~AppContext() override;

    Session& session() { return session_; }
    const Session& session() const { return session_; }

    // --- messages ---------------------------------------------------------
    // Every message box of the program goes through these.
    void showMessage(const Message& m, QWidget* parent = nullptr);
    void showMessages(const Messages& ms, QWidget* parent = nullptr);
    QMessageBox::StandardButton ask(const Message& m, QMessageBox::StandardButtons buttons,
                                    QWidget* parent = nullptr);
    // "<what> is not available yet." for commands whose windows are missing.
    void notAvailable(const QString& what, QWidget* parent = nullptr);
    static Message NotAvailableMessage(const QString& what);

    // Replace the message-box, question and file-selection handlers (tests);
    // an empty function restores the real one.
    static void setMessageSink(MessageSink sink);
    static void setQuestionSink(QuestionSink sink);
    static void setFileSink(FileSink sink);

    // The file-selection window SelectFIle, modal; SelectedFile or empty.
    QString selectFile(const QString& pattern, QWidget* parent = nullptr);

    // --- windows by name --------------------------------------------------
    void registerWindow(const QString& name, WindowFactory factory);
    bool isRegistered(const QString& name) const;
    // The loaded window, or null.
    QWidget* window(const QString& name) const;
    template <class T> T* windowAs(const QString& name) const {
        return qobject_cast<T*>(window(name));
    }
    // Loads the window when it is not loaded (not shown); null when no
    // window of that name exists in this build.
    QWidget* loadWindow(const QString& name);
    // Loads, shows and raises; shows the "not available yet" message (with
    // `what` as the command's name, default the window name) when the window
    // does not exist, and returns null.
    QWidget* showWindow(const QString& name, const QString& what = {});
    void hideWindow(const QString& name);
    // Closes and releases the window (nothing when it is not loaded).
    void unloadWindow(const QString& name);

    // Commands of later subsystems that are not a window of their own
    // (the natal report): registered by name, run from the menus.
    void registerCommand(const QString& name, std::function<void(AppContext&)> command);
    bool hasCommand(const QString& name) const;
    // Runs the command, or shows "<what> is not available yet.".
    void runCommand(const QString& name, const QString& what);

    // Work done while the title window shows at start-up (the wheel's
    // tables), in the order added.
    void addTitleTask(std::function<void(AppContext&)> task);
    void runTitleTasks();

    QWidget* mainWindow() const { return mainWindow_; }
    void setMainWindow(QWidget* w) { mainWindow_ = w; }

    // --- the data page ----------------------------------------------------
    // Shows the current page: writes reports/LASTPAGE.TXT and loads it into
    // the data window OutputD1 (loaded when needed).
    void showDataPage();
    // A listing command: runs it (it fills the page and shows it through
    // the Session), shows its messages, then loads the page into the data
    // window. The hourglass pointer is shown meanwhile.
    void runListing(const std::function<Messages(Session&)>& listing, QWidget* parent = nullptr);

    // --- the chart --------------------------------------------------------
    // CalcChart with the window actions around it: hourglass pointer, the
    // input-check messages, on success the chart-dependent menu items (the
    // chartCalculated signal), the page in the data window and the chart
    // wheel window reopened. Returns false when the input checks failed.
    bool calcChart(QWidget* parent = nullptr);

    // Window geometry kept in twips in Kaltrova.INI: 15 twips to the pixel.
    static constexpr int TwipsPerPixel = 15;
    static int toTwips(int px) { return px * TwipsPerPixel; }
    static int toPixels(double twips) { return static_cast<int>(twips / TwipsPerPixel + 0.5); }

  signals:
    // A calculation succeeded: enable the chart-dependent menu items.
    void chartCalculated();
    // A window was loaded / is about to be released.
    void windowLoaded(const QString& name, QWidget* w);
    void windowUnloaded(const QString& name);
    // The file-selection window's Select empties the names list of Names
    // and the cities list of Geograph before it returns.
    void selectionListsEmptied();

  private:
    Session& session_;
    QPointer<QWidget> mainWindow_;
    std::map<QString, WindowFactory> factories_;
    std::map<QString, QPointer<QWidget>> windows_;
    std::map<QString, std::function<void(AppContext&)>> commands_;
    std::vector<std::function<void(AppContext&)>> titleTasks_;
};

// Shows a message with a real QMessageBox (exact text, caption and icon).
void ShowMessageBox(const Message& m, QWidget* parent);
QMessageBox::Icon ToQtIcon(Icon icon);

} // namespace kal::ui
