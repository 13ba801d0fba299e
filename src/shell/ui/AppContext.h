// The object every window gets: the Session, the windows' display
// preferences, the dialogs, the data page, the chart calculation with the
// window actions around it, and the program's windows and commands by name
// (loaded on first use, hidden, unloaded). Windows never reach each other
// directly; they go through here. Each subsystem's window library registers
// its windows and commands here at start-up (see app/Windows.cpp).
#pragma once

#include <QApplication>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Message.h"
#include "chart/InputFields.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/ui/Dialogs.h"
#include "shell/ui/WindowNames.h"

namespace kal::ui {

// The hourglass pointer for the life of a command.
struct WaitCursor {
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

// What the windows keep for themselves: the places and fonts of
// Kaltrova.INI, the data window's font face, the wheel's size constants
// chosen from the screen, whether the data window is minimised, the caption
// prefix.
struct DisplayPrefs {
    Settings settings;
    std::string ListFontName = "COURIER NEW";
    double WheelScreenW = 1024;
    double WheelScale = 1.5;
    // The data window is minimised: pages are composed but not shown.
    bool DataWindowMinimised = false;
    std::string TitlePrefix = "Kaltrova (Tropical zodiac) - ";
};

class AppContext : public QObject {
    Q_OBJECT

  public:
    // Builds a window; `parent` is the main window (or null before it
    // exists). The window is made a top-level window of its own.
    using WindowFactory = std::function<QWidget*(AppContext&, QWidget* parent)>;
    using Command = std::function<void(AppContext&)>;

    explicit AppContext(Session& session, QObject* parent = nullptr);
    ~AppContext() override;

    Session& session() { return session_; }
    const Session& session() const { return session_; }
    DisplayPrefs& display() { return display_; }
    const DisplayPrefs& display() const { return display_; }

    // --- dialogs ----------------------------------------------------------
    Dialogs& dialogs() { return *dialogs_; }
    // Replaces the dialogs (tests).
    void setDialogs(std::unique_ptr<Dialogs> dialogs);
    // Every message box of the program goes through these.
    void showMessage(const Message& m, QWidget* parent = nullptr);
    void showMessages(const Messages& ms, QWidget* parent = nullptr);
    QMessageBox::StandardButton ask(const Message& m, QMessageBox::StandardButtons buttons,
                                    QWidget* parent = nullptr);
    // "<what> is not available yet." for commands whose windows are missing.
    void notAvailable(const QString& what, QWidget* parent = nullptr);
    static Message NotAvailableMessage(const QString& what);
    // The file-selection window SelectFIle, modal, opened on the file in use
    // (`current`, selected so that Select keeps it); the chosen file or
    // empty.
    QString selectFile(const QString& pattern, const std::filesystem::path& current = {},
                       QWidget* parent = nullptr);

    // --- windows by name --------------------------------------------------
    void registerWindow(WindowName name, WindowFactory factory);
    bool isRegistered(WindowName name) const;
    // The loaded window, or null.
    QWidget* window(WindowName name) const;
    template <class T> T* windowAs(WindowName name) const { return qobject_cast<T*>(window(name)); }
    // Loads the window when it is not loaded (not shown); null when no
    // window of that name exists in this build.
    QWidget* loadWindow(WindowName name);
    // Loads, shows and raises; shows the "not available yet" message (with
    // `what` as the command's name, default the window name) when the window
    // does not exist, and returns null.
    QWidget* showWindow(WindowName name, const QString& what = {});
    void hideWindow(WindowName name);
    // Closes and releases the window (nothing when it is not loaded).
    void unloadWindow(WindowName name);

    // --- commands by name -------------------------------------------------
    void registerCommand(CommandName name, Command command);
    bool hasCommand(CommandName name) const;
    // Runs the command, or shows "<what> is not available yet.".
    void runCommand(CommandName name, const QString& what);
    // Runs the command when one is registered; nothing otherwise.
    void runCommandIfAny(CommandName name);

    // Work done while the title window shows at start-up (the wheel's
    // tables), in the order added.
    void addTitleTask(Command task);
    void runTitleTasks();

    QWidget* mainWindow() const { return mainWindow_; }
    void setMainWindow(QWidget* w) { mainWindow_ = w; }

    // --- the chart and the data page --------------------------------------
    // The fields a calculation from "the data last entered" takes: what the
    // registered input source gives (the input window's fields while it is
    // loaded), else the fields the chart was last calculated from.
    void setInputSource(std::function<std::optional<InputFields>()> source);
    InputFields currentInput() const;

    // The chart calculation from input fields with the window actions
    // around it: hourglass pointer, the messages, on success the
    // chart-dependent menu items (the chartCalculated signal), the page in
    // the data window and the chart wheel window reopened. False when the
    // input checks failed.
    bool calculate(const InputFields& in, QWidget* parent = nullptr);
    // The same for the chart wheel's time steps: the chart from a stepped
    // record (update mode).
    bool calculate(const SteppedRecord& r, QWidget* parent = nullptr);

    // A command that composes a page (a listing, a help text): runs it with
    // the hourglass pointer, shows the page when it returns no message,
    // shows its messages, then loads the page into the data window.
    void runListing(const std::function<Messages(Session&)>& listing, QWidget* parent = nullptr);
    // Writes the composed page to reports/LASTPAGE.TXT (Session::ShowDataPage
    // with the data window's state) and appends to `messages` the message
    // for a page the file could not take.
    void writeDataPage(Messages& messages);
    // Loads the current page (reports/LASTPAGE.TXT) into the data window
    // OutputD1 (loaded when needed), unless it is minimised or the buffer is
    // empty.
    void showDataPage();

    // Window geometry kept in twips in Kaltrova.INI: 15 twips to the pixel.
    // Both conversions hold their result within range (a settings file may
    // hold any number); pixels are rounded to the nearest.
    static constexpr int TwipsPerPixel = 15;
    static int toTwips(int px);
    static short toTwips16(int px); // for the 16-bit places of the data and wheel windows
    static int toPixels(double twips);

    // A window's place as Kaltrova.INI keeps it: the client area (the window
    // without the frame a window manager adds), so that the place restored
    // is the place saved, whatever the frame.
    struct Place {
        double left = 0, top = 0, width = 0, height = 0; // twips
    };
    static Place placeOf(const QWidget* w);
    // Puts a window at a kept place; a place whose top edge would be on no
    // screen (off every screen, or from a damaged settings file) is brought
    // onto the nearest one.
    static void restorePlace(QWidget* w, const Place& place);
    // `r` as restorePlace puts it on the screens `screens` (their available
    // areas): unchanged when the left part of its top edge lies on one,
    // else moved (and cut to size) into the one nearest to it.
    static QRect keptOnScreen(const QRect& r, const QList<QRect>& screens);

  signals:
    // A calculation succeeded: enable the chart-dependent menu items.
    void chartCalculated();
    // A window was loaded / is about to be released.
    void windowLoaded(WindowName name, QWidget* w);
    void windowUnloaded(WindowName name);
    // The file-selection window's Select empties the names list of Names
    // and the cities list of Geograph before it returns.
    void selectionListsEmptied();

  private:
    bool runCalculation(const std::function<CalcOutcome()>& calculation, QWidget* parent);

    Session& session_;
    DisplayPrefs display_;
    std::unique_ptr<Dialogs> dialogs_;
    QPointer<QWidget> mainWindow_;
    std::map<WindowName, WindowFactory> factories_;
    std::map<WindowName, QPointer<QWidget>> windows_;
    std::map<CommandName, Command> commands_;
    std::vector<Command> titleTasks_;
    std::function<std::optional<InputFields>()> inputSource_;
};

} // namespace kal::ui
