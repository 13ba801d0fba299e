#include "shell/ui/AppContext.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>
#include <climits>
#include <cmath>

#include "base/VbText.h"
#include "shell/ui/OutputD1.h"

namespace kal::ui {

AppContext::AppContext(Session& session, QObject* parent)
    : QObject(parent), session_(session), dialogs_(std::make_unique<QtDialogs>()) {}

AppContext::~AppContext() {
    for (auto& [name, w] : windows_)
        if (w) delete w.data();
}

void AppContext::setDialogs(std::unique_ptr<Dialogs> dialogs) {
    dialogs_ = std::move(dialogs);
}

void AppContext::showMessage(const Message& m, QWidget* parent) {
    // A message box never sits under an hourglass.
    bool waiting = QApplication::overrideCursor() != nullptr;
    if (waiting) QApplication::setOverrideCursor(Qt::ArrowCursor);
    dialogs_->message(m, parent ? parent : mainWindow_.data());
    if (waiting) QApplication::restoreOverrideCursor();
}

void AppContext::showMessages(const Messages& ms, QWidget* parent) {
    for (const auto& m : ms) showMessage(m, parent);
}

QMessageBox::StandardButton AppContext::ask(const Message& m, QMessageBox::StandardButtons buttons,
                                            QWidget* parent) {
    return dialogs_->question(m, buttons, parent ? parent : mainWindow_.data());
}

Message AppContext::NotAvailableMessage(const QString& what) {
    return {(what + " is not available yet.").toStdString(), "Information", Icon::Information};
}

void AppContext::notAvailable(const QString& what, QWidget* parent) {
    showMessage(NotAvailableMessage(what), parent);
}

QString AppContext::selectFile(const QString& pattern, const std::filesystem::path& current,
                               QWidget* parent) {
    return dialogs_->chooseFile(*this, pattern, QString::fromStdString(current.string()),
                                parent ? parent : mainWindow_.data());
}

void AppContext::registerWindow(WindowName name, WindowFactory factory) {
    factories_[name] = std::move(factory);
}

bool AppContext::isRegistered(WindowName name) const {
    return factories_.count(name) != 0;
}

QWidget* AppContext::window(WindowName name) const {
    auto it = windows_.find(name);
    return it == windows_.end() ? nullptr : it->second.data();
}

QWidget* AppContext::loadWindow(WindowName name) {
    if (QWidget* w = window(name)) return w;
    auto f = factories_.find(name);
    if (f == factories_.end()) return nullptr;
    QWidget* w = f->second(*this, mainWindow_.data());
    if (!w) return nullptr;
    if (!w->isWindow()) w->setWindowFlag(Qt::Window, true);
    w->setAttribute(Qt::WA_DeleteOnClose, true);
    if (w->objectName().isEmpty()) w->setObjectName(name.text());
    // A window without a place of its own opens below the main strip, not
    // over its menu. The place is its client area's, which a window manager
    // keeps as given (and which is then known before the window is framed).
    if (mainWindow_ && w->pos() == QPoint(0, 0))
        w->setGeometry(QRect(QPoint(mainWindow_->frameGeometry().left() + 40,
                                    mainWindow_->frameGeometry().bottom() + 40),
                             w->size()));
    windows_[name] = w;
    emit windowLoaded(name, w);
    return w;
}

QWidget* AppContext::showWindow(WindowName name, const QString& what) {
    QWidget* w = loadWindow(name);
    if (!w) {
        notAvailable(what.isEmpty() ? name.text() : what);
        return nullptr;
    }
    if (w->isMinimized()) w->showNormal();
    w->show();
    w->raise();
    w->activateWindow();
    return w;
}

void AppContext::hideWindow(WindowName name) {
    if (QWidget* w = window(name)) w->hide();
}

void AppContext::unloadWindow(WindowName name) {
    auto it = windows_.find(name);
    if (it == windows_.end()) return;
    QPointer<QWidget> w = it->second;
    windows_.erase(it);
    if (!w) return;
    emit windowUnloaded(name);
    w->setAttribute(Qt::WA_DeleteOnClose, false);
    w->close();
    // Released once the current event is done: a window may be unloaded
    // from inside one of its own handlers.
    w->deleteLater();
}

void AppContext::registerCommand(CommandName name, Command command) {
    commands_[name] = std::move(command);
}

bool AppContext::hasCommand(CommandName name) const {
    return commands_.count(name) != 0;
}

void AppContext::runCommand(CommandName name, const QString& what) {
    auto it = commands_.find(name);
    if (it == commands_.end()) {
        notAvailable(what);
        return;
    }
    it->second(*this);
}

void AppContext::runCommandIfAny(CommandName name) {
    auto it = commands_.find(name);
    if (it != commands_.end()) it->second(*this);
}

void AppContext::addTitleTask(Command task) {
    titleTasks_.push_back(std::move(task));
}

void AppContext::runTitleTasks() {
    for (auto& task : titleTasks_) task(*this);
}

void AppContext::setInputSource(std::function<std::optional<InputFields>()> source) {
    inputSource_ = std::move(source);
}

InputFields AppContext::currentInput() const {
    if (inputSource_)
        if (auto in = inputSource_()) return *in;
    return session_.calc.input;
}

void AppContext::showDataPage() {
    if (display_.DataWindowMinimised || session_.listing.out.AllCount() == 0) return;
    auto* data = qobject_cast<OutputD1*>(loadWindow(win::OutputD1));
    if (!data) return;
    data->LoadPage();
}

void AppContext::runListing(const std::function<Messages(Session&)>& listing, QWidget* parent) {
    Messages msgs;
    {
        WaitCursor wait;
        msgs = listing(session_);
        if (msgs.empty()) writeDataPage(msgs);
    }
    showMessages(msgs, parent);
    // A listing that could not run leaves the page empty and the window as
    // it was.
    if (session_.listing.out.PageCount() > 0) showDataPage();
}

void AppContext::writeDataPage(Messages& messages) {
    if (auto m = session_.ShowDataPage(display_.DataWindowMinimised).notWritten)
        messages.push_back(*m);
}

bool AppContext::calculate(const InputFields& in, QWidget* parent) {
    return runCalculation([&] { return session_.Calculate(in); }, parent);
}

bool AppContext::calculate(const SteppedRecord& r, QWidget* parent) {
    return runCalculation([&] { return session_.Calculate(r); }, parent);
}

bool AppContext::runCalculation(const std::function<CalcOutcome()>& calculation, QWidget* parent) {
    CalcOutcome outcome;
    {
        WaitCursor wait;
        outcome = calculation();
        if (outcome.calculated) writeDataPage(outcome.messages);
    }
    showMessages(outcome.messages, parent);
    if (!outcome.calculated) return false;
    emit chartCalculated();
    showDataPage();
    if (outcome.notice)
        if (auto* data = qobject_cast<OutputD1*>(window(win::OutputD1)))
            data->showStatus(QString::fromStdString(*outcome.notice));
    // The chart wheel is drawn again from the new chart.
    if (hasCommand(cmd::ReopenWheel)) {
        runCommand(cmd::ReopenWheel, {});
    } else if (isRegistered(win::Wheels)) {
        unloadWindow(win::Wheels);
        showWindow(win::Wheels);
    }
    return true;
}

// --- window places ------------------------------------------------------------

namespace {

// Far beyond any screen, yet a pixel count every later sum can take.
constexpr int kMaxPixels = 1 << 24;

} // namespace

int AppContext::toTwips(int px) {
    const long long t = static_cast<long long>(px) * TwipsPerPixel;
    return static_cast<int>(std::clamp<long long>(t, INT_MIN, INT_MAX));
}

short AppContext::toTwips16(int px) {
    return RoundToShort(double(px) * TwipsPerPixel);
}

int AppContext::toPixels(double twips) {
    if (!std::isfinite(twips)) return 0;
    const double px = std::floor(twips / TwipsPerPixel + 0.5);
    return static_cast<int>(std::clamp(px, double(-kMaxPixels), double(kMaxPixels)));
}

AppContext::Place AppContext::placeOf(const QWidget* w) {
    const QRect g = w->geometry();
    return {double(toTwips(g.x())), double(toTwips(g.y())), double(toTwips(g.width())),
            double(toTwips(g.height()))};
}

void AppContext::restorePlace(QWidget* w, const Place& place) {
    QRect r(toPixels(place.left), toPixels(place.top), std::max(1, toPixels(place.width)),
            std::max(1, toPixels(place.height)));
    r.setSize(r.size().boundedTo(w->maximumSize()).expandedTo(w->minimumSize()));
    QList<QRect> screens;
    for (const QScreen* s : QGuiApplication::screens()) screens << s->availableGeometry();
    // The client area goes where it was: the window manager puts the frame
    // around it.
    w->setGeometry(keptOnScreen(r, screens));
}

QRect AppContext::keptOnScreen(const QRect& r, const QList<QRect>& screens) {
    if (screens.isEmpty()) return r;
    // The left part of the top edge holds the title and the menu.
    const QPoint probe(r.left() + std::min(r.width(), 100) / 2, r.top());
    for (const QRect& s : screens)
        if (s.contains(probe)) return r;
    auto distance = [&probe](const QRect& s) {
        const long long dx = std::max({s.left() - probe.x(), 0, probe.x() - s.right()});
        const long long dy = std::max({s.top() - probe.y(), 0, probe.y() - s.bottom()});
        return dx * dx + dy * dy;
    };
    const QRect s =
        *std::min_element(screens.begin(), screens.end(), [&](const QRect& a, const QRect& b) {
            return distance(a) < distance(b);
        });
    QRect out(r.topLeft(), r.size().boundedTo(s.size()));
    out.moveLeft(std::clamp(out.left(), s.left(), s.right() + 1 - out.width()));
    out.moveTop(std::clamp(out.top(), s.top(), s.bottom() + 1 - out.height()));
    return out;
}

} // namespace kal::ui
